#include "art/portraits/emblems.h"

#include <cmath>

// Studios seen from inside.
namespace velmora::art::emblem {

void harbourLoft(Sketch& s)
{
    s.glow(79, 33, 20, 0.4);
    s.pen(1.8);
    s.arch(22, 98, 48, 84);
    s.line(22, 84, 98, 84);
    s.line(12, 87, 108, 87);
    s.pen(1.2, 0.6);
    s.line(60, 10, 60, 84);
    s.line(22, 48, 98, 48);
    s.pen(1.5);
    s.ring(79, 33, 5.5);
    s.field({{58, 34}, {58, 63}, {38, 63}}, 0.5); // sails and hull
    s.close({{58, 34}, {58, 63}, {38, 63}});
    s.close({{61, 39}, {74, 63}, {61, 63}});
    s.field({{34, 66}, {80, 66}, {73, 73}, {41, 73}}, 0.35);
    s.close({{34, 66}, {80, 66}, {73, 73}, {41, 73}});
    s.pen(1.3, 0.8);
    for (int row = 0; row < 2; ++row) {
        const double y = 76 + 4.5 * row;
        for (double x = 27 + 6 * row; x < 88; x += 14) s.bow(x, y, x + 4, y - 3, x + 8, y);
    }
}

/// A desk with fourteen channels.
void studioVierzehn(Sketch& s)
{
    s.pen(1.5);
    s.box(43, 18, 34, 26);
    s.fieldBox(43, 18, 34, 26, 0.16);
    s.pen(1.2, 0.6);
    s.line(47, 38, 58, 22);
    s.line(53, 40, 66, 22);
    s.pen(1.5);
    s.speaker(18, 22, 18, 28);
    s.speaker(84, 22, 18, 28);
    s.field({{26, 54}, {94, 54}, {106, 82}, {14, 82}}, 0.14);
    s.close({{26, 54}, {94, 54}, {106, 82}, {14, 82}});
    s.trace({{14, 82}, {16, 88}, {104, 88}, {106, 82}});
    for (int channel = 0; channel < 14; ++channel) {
        const double share = (channel + 0.5) / 14;
        const double top = 26 + 68 * share;
        const double bottom = 14 + 92 * share;
        const double at = 0.35 + 0.28 * std::sin(1.1 * channel);
        s.pen(0.9, 0.55);
        s.line(top + (bottom - top) * 0.12, 57.5, top + (bottom - top) * 0.9, 79);
        s.disc(top + (bottom - top) * (0.12 + 0.78 * at), 57.5 + 21.5 * at, 1.7);
    }
}

void coalCellar(Sketch& s)
{
    s.pen(1.7);
    s.arch(15, 105, 55, 87);
    s.line(12, 87, 108, 87);
    s.arch(40, 80, 56, 74);
    s.line(40, 74, 80, 74);
    s.pen(1.1, 0.6);
    for (const double degrees : {-60.0, -30.0, 0.0, 30.0, 60.0}) {
        const Spot near = onCircle(60, 55, 45, degrees);
        const Spot far = onCircle(60, 56, 20, degrees);
        s.line(near.x, near.y, far.x, far.y);
    }
    s.arc(60, 55.5, 32, -90, 90);
    s.line(15, 87, 40, 74);
    s.line(105, 87, 80, 74);
    s.pen(1.5);
    s.lamp(60, 12, 32);
    s.field({{66, 87}, {72, 77}, {78, 73}, {85, 68}, {92, 74}, {97, 80}, {101, 87}}, 0.45);
    s.trace({{66, 87}, {72, 77}, {78, 73}, {85, 68}, {92, 74}, {97, 80}, {101, 87}});
    s.trace({{72, 77}, {80, 80}, {85, 68}});
    s.trace({{80, 80}, {86, 87}});
    s.trace({{80, 80}, {92, 74}});
}

void birchRoom(Sketch& s)
{
    s.line(12, 86, 108, 86);
    constexpr double kTrunks[]{19, 37, 78, 96};
    for (int trunk = 0; trunk < 4; ++trunk) {
        const double x = kTrunks[trunk];
        const double half = trunk % 2 == 0 ? 5.5 : 4.5;
        s.fieldBox(x - half, 11, 2 * half, 75, 0.22);
        s.pen(1.5);
        s.line(x - half, 11, x - half, 86);
        s.line(x + half, 11, x + half, 86);
        s.pen(1.5, 0.85);
        for (int mark = 0; mark < 8; ++mark) {
            const double y = 17 + 9 * mark + 3.0 * ((trunk * 5 + mark * 3) % 3);
            const bool left = (trunk + mark) % 2 == 0;
            s.line(left ? x - half : x + half, y, left ? x + half * 0.2 : x - half * 0.2, y + 0.8);
        }
    }
    s.pen(1.5);
    s.line(41.5, 30, 47, 21);
    s.line(73.5, 38, 68, 28);
    s.pen(1.6);
    s.microphone(58, 47, 86);
}

void cornerFlat(Sketch& s)
{
    s.pen(1.7);
    s.trace({{12, 10}, {58, 22}, {108, 10}});
    s.line(58, 22, 58, 62);
    s.trace({{12, 84}, {58, 62}, {108, 84}});
    s.pen(1.4);
    s.field({{21, 27}, {45, 31}, {45, 54}, {21, 61}}, 0.25);
    s.close({{21, 27}, {45, 31}, {45, 54}, {21, 61}});
    s.line(33, 29, 33, 57.5);
    s.line(21, 44, 45, 42.5);
    s.field({{45, 70}, {58, 76}, {40, 87}, {22, 84}}, 0.16); // light on the floor
    s.pen(1.5);
    s.speaker(74, 34, 20, 32);
    s.line(78, 66, 75, 86);
    s.line(90, 66, 93, 86);
    s.line(84, 66, 84, 82);
}

/// Looked at from the top floor: flights going down in turns, darker with every step.
void velvetStairwell(Sketch& s)
{
    constexpr double kX = 60;
    constexpr double kY = 49;
    constexpr int kSteps = 18;
    struct Flight {
        double inner, outer, start, strength;
    };
    constexpr Flight kFlights[]{{28, 38, 0, 0.62}, {18, 26, 130, 0.42}, {10, 16, 260, 0.28}};
    for (const Flight& flight : kFlights) {
        for (int step = 0; step < kSteps; ++step) {
            const double from = flight.start + 360.0 * step / kSteps;
            const double share = 1.0 - static_cast<double>(step) / kSteps;
            s.wedge(kX, kY, flight.inner, flight.outer, from, from + 360.0 / kSteps, flight.strength * share);
            s.pen(1.1, 0.35 + flight.strength * 0.7);
            const Spot inner = onCircle(kX, kY, flight.inner, from);
            const Spot outer = onCircle(kX, kY, flight.outer, from);
            s.line(inner.x, inner.y, outer.x, outer.y);
        }
        s.pen(1.0 + flight.strength, 0.5 + flight.strength * 0.7);
        s.ring(kX, kY, flight.outer);
        s.ring(kX, kY, flight.inner);
    }
    s.glow(kX, kY, 10, 0.8);
}

void longHall(Sketch& s)
{
    constexpr double kX = 60;
    constexpr double kY = 50;
    constexpr double kDepths[]{1.0, 0.7, 0.5, 0.36, 0.26};
    for (const double near : kDepths) {
        s.pen(0.9 + 0.9 * near, 0.6 + 0.35 * near);
        s.arch(kX - 46 * near, kX + 46 * near, kY - 2 * near, kY + 37 * near);
    }
    s.fieldBox(kX - 12, kY - 8, 24, 17, 0.3, 8);
    s.glow(kX, kY, 24, 0.6);
    s.pen(1.2, 0.7);
    for (const double share : {-1.0, -0.5, 0.0, 0.5, 1.0})
        s.line(kX + 12 * share, kY + 9.6, kX + 46 * share, kY + 37);
    for (const double near : {0.84, 0.6, 0.43}) {
        s.line(kX, kY - 48 * near, kX, kY - 34 * near);
        s.disc(kX, kY - 33 * near, 3 * near);
        s.glow(kX, kY - 33 * near, 10 * near, 0.5);
    }
}

void dubBasement(Sketch& s)
{
    s.pen(1.6);
    s.line(12, 87, 108, 87);
    for (const double x : {16.0, 78.0}) {
        s.speaker(x, 45, 26, 42);
        s.fieldBox(x, 24, 26, 20, 0.12);
        s.box(x, 24, 26, 20, 1.5);
        s.ring(x + 8, 34, 4.6);
        s.ring(x + 18, 34, 4.6);
    }
    s.box(46, 12, 28, 13); // at the height of the pavement
    s.fieldBox(46, 12, 28, 13, 0.3);
    for (const double x : {53.0, 60.0, 67.0}) s.line(x, 12, x, 25);
    s.glow(60, 20, 24, 0.3);
    s.box(47, 62, 26, 25, 2);
    s.reel(53.8, 69.5, 5);
    s.reel(66.2, 69.5, 5);
    s.pen(1.2);
    for (const double x : {52.0, 57.3, 62.7, 68.0}) s.ring(x, 81, 1.8);
    for (int echo = 0; echo < 3; ++echo) {
        s.pen(1.5, 0.9 - 0.25 * echo);
        s.arc(60, 60, 8.0 + 6 * echo, -42, 42);
    }
}

void stageSix(Sketch& s)
{
    s.pen(1.6);
    s.line(14, 16, 106, 16);
    for (int spot = 0; spot < 6; ++spot) {
        const double x = 25 + 14.0 * spot;
        const double aim = 60 + (x - 60) * 0.45;
        s.field({{x - 1.6, 21}, {x + 1.6, 21}, {aim + 8, 74}, {aim - 8, 74}}, 0.11);
        s.fieldBox(x - 3, 14, 6, 8, 0.95, 1.6);
    }
    s.pen(1.4);
    for (const double side : {-1.0, 1.0}) {
        const double edge = 60 + side * 47;
        s.bow(edge, 10, edge - side * 2, 48, edge, 84);
        s.bow(edge - side * 7, 10, edge - side * 5, 46, edge - side * 9, 84);
        s.bow(edge - side * 13, 10, edge - side * 10, 46, edge - side * 17, 76);
    }
    s.field({{12, 87}, {24, 74}, {96, 74}, {108, 87}}, 0.22);
    s.close({{12, 87}, {24, 74}, {96, 74}, {108, 87}});
    s.microphone(60, 50, 79);
}

void plainPlaster(Sketch& s)
{
    s.pen(1.1, 0.3); // the trowel's strokes
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4 + row % 2; ++column) {
            const double x = 32 + 18.5 * column - 9.25 * (row % 2);
            const double y = 34 + 17 * row;
            s.arc(x, y, 11, -60, 48);
            s.arc(x, y, 7.5, -54, 42);
        }
    }
    s.pen(1.6);
    s.line(12, 76, 108, 76);
    s.line(12, 79, 108, 79);
    s.line(60, 8, 60, 17);
    s.ring(60, 21.5, 4);
    s.glow(60, 21.5, 22, 0.6);
    s.microphone(78, 52, 87);
    s.trace({{34, 44}, {36, 65}, {50, 65}}); // a chair
    s.line(36, 65, 34, 87);
    s.line(50, 65, 52, 87);
    s.line(35, 54, 35, 65);
}

} // namespace velmora::art::emblem
