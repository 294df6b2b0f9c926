#pragma once

#include <complex>
#include <span>

/// Figures that tests check.
namespace velmora::test {

/// 20 log10 of a linear level; -infinity for 0.
double decibels(double level);
double peak(std::span<const double> signal);
double rms(std::span<const double> signal);
double rmsDb(std::span<const double> signal);
/// Amplitude and phase of the part at one frequency: a full-scale cosine of whole periods gives 1 + 0i.
std::complex<double> componentAt(std::span<const double> signal, double frequency, double sampleRate);
/// Amplitude of the part at one frequency; a full-scale sine of whole periods gives 1.
double magnitudeAt(std::span<const double> signal, double frequency, double sampleRate);
double magnitudeDbAt(std::span<const double> signal, double frequency, double sampleRate);
/// Gain at one frequency of a system from its impulse response, dB.
double responseDbAt(std::span<const double> impulseResponse, double frequency, double sampleRate);
/// Largest magnitude of the difference; infinity if the lengths differ or a difference is no number.
double maxDifference(std::span<const double> a, std::span<const double> b);
bool allFinite(std::span<const double> signal);

} // namespace velmora::test
