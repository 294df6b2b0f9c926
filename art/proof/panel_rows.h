#pragma once

#include "art/proof/panel_proof.h"

/// Controls of each panel: where the editor puts them, at values that show something.
namespace velmora::art {

inline constexpr Control kGainControls[] = {
    film(32002, 46, 51, 0.5),  {Control::Kind::Lamps, 31301, 115, 50, 2, 60, 2, 1, 1},
    film(32002, 46, 164, 0.6), film(32004, 9, 47, 1),
    film(31303, 13, 214, 1),   film(31303, 13, 113, 0),
    film(31302, 119, 275, 0),
};

inline constexpr Control kPre60sControls[] = {
    film(31101, 47, 51, 0.5),      {Control::Kind::Lamps, 31301, 115, 50, 2, 60, 2, 1, 1},
    film(31101, 47, 164, 0.6),     film(35205, 6, 47, 1),
    film(31102, 9, 225, 1),        film(31102, 9, 124, 0),
    film(31103, 117, 274, 0),      film(31101, 25, 330, 0.62),
    film(31301, 78, 312, 1 / 3.0), film(31101, 25, 433, 0.35),
    film(35204, 117, 404, 0.5),    film(35205, 114, 498, 1),
};

inline constexpr Control kPre70sControls[] = {
    film(31201, 46, 51, 0.5),      {Control::Kind::Lamps, 31301, 115, 50, 2, 60, 2, 1, 1},
    film(31201, 46, 164, 0.6),     film(31202, 11, 48, 1),
    film(31303, 13, 214, 1),       film(31303, 13, 113, 0),
    film(31202, 119, 274, 0),      film(31201, 24, 330, 0.62),
    film(31301, 78, 312, 1 / 3.0), film(31201, 24, 433, 0.35),
    film(32003, 121, 394, 0.5),    film(31202, 119, 499, 1),
};

inline constexpr Control kPre80sControls[] = {
    film(31304, 46, 51, 0.5),      {Control::Kind::Lamps, 31301, 115, 50, 2, 60, 2, 1, 1},
    film(31304, 46, 164, 0.6),     film(32004, 9, 47, 1),
    film(31303, 13, 214, 1),       film(31303, 13, 113, 0),
    film(31302, 119, 275, 0),      film(31304, 24, 330, 0.62),
    film(31301, 78, 312, 1 / 3.0), film(31304, 24, 433, 0.35),
    film(32003, 121, 394, 0.5),    film(32004, 117, 498, 1),
};

inline constexpr Control kAdc90sControls[] = {
    film(32002, 46, 51, 0.5),      {Control::Kind::Lamps, 31301, 115, 50, 2, 60, 2, 1, 1},
    film(32002, 46, 164, 0.6),     film(32004, 9, 47, 1),
    film(31303, 13, 214, 1),       film(31303, 13, 113, 0),
    film(31302, 119, 275, 0),      film(32002, 24, 330, 0.62),
    film(31301, 78, 312, 1 / 3.0), film(32002, 24, 433, 0.35),
    film(32003, 121, 394, 0.5),    film(32004, 117, 498, 1),
};

inline constexpr Control kBasicFilterControls[] = {
    film(32004, 118, 53, 1),  film(32003, 123, 85, 0.5),  film(32002, 26, 57, 0.83),
    film(32004, 118, 433, 0), film(32003, 123, 466, 0.5), film(32002, 26, 438, 0.31),
};

inline constexpr Control kProFilterControls[] = {
    film(32004, 118, 53, 1),    film(32003, 123, 85, 0.5),  film(32002, 26, 57, 0.83),
    film(32004, 118, 433, 0),   film(32003, 123, 466, 0.5), film(32002, 26, 438, 0.31),
    film(32004, 118, 164, 1),   film(32002, 26, 169, 0.4),  film(32001, 91, 230, 0.56),
    film(32002, 26, 281, 0.41), film(32105, 12, 372, 0.25),
};

inline constexpr Control kExpanderControls[] = {
    film(33003, 16, 59, 0.23),  film(33003, 91, 59, 0.49),        film(33001, 17, 157, 0.6),
    film(33001, 17, 270, 0.37), film(33003, 16, 382, 0.6),        film(33003, 91, 382, 0.18),
    film(36005, 38, 475, 0.25), film(36005, 89, 475, 0.8),        film(32004, 10, 498, 1),
    film(32004, 115, 498, 0),   reductionBar(33101, 117, 157, 5),
};

inline constexpr Control kGateControls[] = {
    film(33003, 16, 59, 0.23),  film(33003, 91, 59, 0.49),        film(33004, 17, 157, 0.45),
    film(33004, 17, 270, 0.37), film(33003, 16, 382, 0.6),        film(33003, 91, 382, 0.18),
    film(36005, 38, 475, 0.25), film(36005, 89, 475, 0.8),        film(32004, 10, 498, 1),
    film(32004, 115, 498, 0),   reductionBar(33101, 117, 157, 5),
};

inline constexpr Control kDuckerControls[] = {
    film(33003, 16, 59, 0.23),  film(33003, 91, 59, 0.49),        film(33005, 17, 157, 0.45),
    film(33005, 17, 270, 0.37), film(33003, 16, 382, 0.6),        film(33003, 91, 382, 0.18),
    film(36005, 38, 475, 0.25), film(36005, 89, 475, 0.8),        film(32004, 10, 498, 1),
    film(32004, 115, 498, 0),   reductionBar(33101, 117, 157, 5),
};

inline constexpr Control kOptoControls[] = {
    {Control::Kind::Needle, 34004, 7, 30, 0.44},
    film(34001, 14, 155, 0.63),
    film(34001, 89, 155, 0.43),
    film(34002, 38, 226, 0.44),
    film(34001, 14, 323, 0.5),
    film(34001, 89, 323, 1),
    film(34002, 38, 394, 0.2),
    film(36005, 27, 495, 0.48),
};

inline constexpr Control kFetControls[] = {
    {Control::Kind::Needle, 34103, 7, 30, 0.44},
    film(34101, 14, 155, 0.63),
    film(34101, 89, 155, 0.43),
    film(34102, 38, 226, 0.44),
    film(34101, 14, 323, 0.5),
    film(34101, 89, 323, 1),
    film(34102, 38, 394, 0.2),
    film(36005, 27, 495, 0.48),
};

inline constexpr Control kVcaControls[] = {
    {Control::Kind::Needle, 34203, 7, 30, 0.44},
    film(34201, 14, 155, 0.63),
    film(34201, 89, 155, 0.43),
    film(34202, 38, 226, 0.44),
    film(34201, 14, 323, 0.5),
    film(34201, 89, 323, 1),
    film(34202, 38, 394, 0.2),
    film(36005, 27, 495, 0.48),
};

inline constexpr Control kSorrelControls[] = {
    film(32004, 118, 47, 1),    film(35001, 44, 60, 0.7),   film(35002, 44, 60, 0.6),
    film(35003, 12, 38, 0),     film(32004, 118, 158, 1),   film(35001, 44, 172, 0.6),
    film(35002, 44, 172, 0.44), film(35003, 12, 150, 0.5),  film(32004, 118, 270, 1),
    film(35001, 44, 284, 0.4),  film(35002, 44, 284, 0.4),  film(35003, 12, 262, 1),
    film(32004, 118, 382, 1),   film(35001, 44, 396, 0.45), film(35002, 44, 396, 0.61),
    film(35003, 12, 374, 0.5),  film(35004, 118, 496, 1),   film(36005, 27, 495, 0.5),
};

inline constexpr Control kTamarinControls[] = {
    film(35102, 113, 45, 1),  film(35101, 43, 62, 0.6),   film(35106, 112, 87, 0),    film(35105, 6, 77, 0),
    film(35102, 113, 157, 1), film(35101, 43, 174, 0.44), film(35106, 112, 199, 0.5), film(35105, 6, 194, 0),
    film(35102, 113, 269, 1), film(35101, 43, 286, 0.4),  film(35106, 112, 311, 1),   film(35105, 6, 316, 0),
    film(35102, 113, 381, 1), film(35101, 43, 398, 0.61), film(35106, 112, 423, 0.5), film(35105, 6, 426, 0),
    film(35104, 113, 494, 1), film(36005, 27, 495, 0.5),
};

inline constexpr Control kJuniperControls[] = {
    film(35203, 7, 26, 0.7),    film(35201, 7, 26, 0.6),   film(35204, 116, 80, 0),
    film(35205, 113, 26, 1),    film(35203, 7, 142, 0.6),  film(35201, 7, 142, 0.44),
    film(35204, 116, 196, 0.5), film(35205, 113, 142, 1),  film(35203, 7, 258, 0.4),
    film(35201, 7, 258, 0.4),   film(35204, 116, 312, 1),  film(35205, 113, 258, 1),
    film(35203, 7, 374, 0.45),  film(35201, 7, 374, 0.61), film(35204, 116, 428, 0.5),
    film(35205, 113, 374, 1),   film(35206, 113, 494, 1),  film(36005, 27, 495, 0.5),
};

inline constexpr Control kOptoLimiterControls[] = {
    film(36001, 2, 118, 0.67),
    film(36001, 77, 118, 0.54),
    film(36002, 22, 218, 0.68),
    film(36002, 22, 351, 0.57),
    {Control::Kind::Mark, 36003, 6, 29, 0.37},
    film(34005, 96, 493, 1),
    film(36005, 23, 495, 0.39),
};

inline constexpr Control kVcaLimiterControls[] = {
    film(36104, 10, 30, 0.44),  film(33006, 15, 126, 0.36), film(33006, 90, 126, 0.39),
    film(31304, 46, 236, 0.74), film(31304, 46, 369, 0.5),  film(36005, 23, 495, 0),
    film(36103, 103, 492, 1),
};

inline constexpr Control kBrickWallControls[] = {
    {Control::Kind::FromRight, 36202, 13, 50, 0.31},
    film(32001, 14, 125, 0.1),
    film(32001, 89, 125, 0.33),
    film(32002, 46, 237, 0.79),
    film(32002, 46, 370, 0.5),
    film(32004, 104, 494, 0),
};

inline constexpr Control kSaturatorControls[] = {
    film(36302, 43, 33, 0.45), film(36303, 43, 33, 0),     film(34001, 13, 122, 0.62),
    film(34001, 89, 122, 0.2), film(34002, 37, 227, 0.64), film(34002, 37, 360, 0.56),
    film(36005, 23, 495, 0),   film(34005, 96, 493, 0),
};

inline constexpr Control kMasterControls[] = {
    {Control::Kind::Film, 37004, 90, 111, 0},
    {Control::Kind::Film, 37004, 130, 111, 0},
    {Control::Kind::FromBottom, 37003, 89, 111, 0.64},
    {Control::Kind::FromBottom, 37003, 129, 111, 0.49},
    film(37002, 20, 164, 0),
    film(37006, 90, 465, 1),
};

inline constexpr Control kDeesserControls[] = {
    film(32001, 14, 57, 0.68),        film(32001, 89, 57, 0.5), film(32002, 24, 157, 0.56),
    film(32002, 24, 270, 0.38),       film(38001, 27, 400, 0),  film(38001, 27, 473, 1),
    reductionBar(33101, 118, 156, 4),
};

inline constexpr Control kDehummerControls[] = {
    film(32001, 29, 57, 0.5), film(32002, 24, 157, 0.4), film(32002, 24, 270, 0.09),
    film(38001, 27, 400, 0),  film(32001, 29, 457, 0.5), reductionBar(33101, 118, 156, 7, 6, 4, 2),
};

inline constexpr Control kMarlowControls[] = {
    film(32002, 16, 56, 0.5),    film(36005, 107, 89, 0.4),  film(38201, 37, 146, 0.5),
    film(32001, 15, 206, 0.375), film(32001, 15, 298, 0.53), film(31301, 60, 187, 2 / 3.0),
    film(31301, 60, 279, 0),     film(32002, 16, 396, 0.73), film(36005, 107, 365, 0.25),
    film(36005, 107, 430, 0.65), film(38201, 37, 480, 0.5),  {Control::Kind::Film, 38202, 108, 212, 0},
};

} // namespace velmora::art
