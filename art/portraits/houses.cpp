#include "art/portraits/emblems.h"

// Studios seen from outside.
namespace velmora::art::emblem {

/// A tower block; somebody is awake on the ninth floor.
void ninthFloorBeats(Sketch& s)
{
    constexpr double kFloor = 7;
    constexpr double kBottom = 87;
    constexpr double kLit = kBottom - 9 * kFloor;
    s.pen(1.2, 0.55);
    s.trace({{14, 87}, {14, 58}, {30, 58}, {30, 66}, {40, 66}});
    s.trace({{82, 62}, {94, 62}, {94, 50}, {106, 50}, {106, 87}});
    s.pen(1.5);
    s.box(42, kBottom - 11 * kFloor + 3, 38, 11 * kFloor - 3);
    s.line(12, kBottom, 108, kBottom);
    for (int floor = 0; floor < 10; ++floor) {
        const double y = kBottom - (floor + 1) * kFloor + 1.5;
        for (int window = 0; window < 4; ++window)
            s.fieldBox(46 + 8 * window, y, 5.5, 4, floor == 8 ? 1.0 : 0.18);
    }
    s.glow(61, kLit + 3.5, 30, 0.4);
    s.pen(1.4);
    for (const double radius : {27.0, 35.0, 43.0}) {
        s.arc(61, kLit + 3.5, radius, 74, 106);
        s.arc(61, kLit + 3.5, radius, 254, 286);
    }
}

void barnDoorSound(Sketch& s)
{
    s.field({{20, 86}, {20, 48}, {34, 27}, {60, 14}, {86, 27}, {100, 48}, {100, 86}}, 0.1);
    s.pen(1.8);
    s.trace({{20, 86}, {20, 48}, {34, 27}, {60, 14}, {86, 27}, {100, 48}, {100, 86}});
    s.trace({{15, 50}, {32, 24}, {60, 9.5}, {88, 24}, {105, 50}});
    s.line(12, 86, 108, 86);
    s.pen(1.4);
    s.ring(60, 33, 7);
    s.line(60, 26, 60, 40);
    s.line(53, 33, 67, 33);
    s.line(34, 47, 86, 47); // rail of the sliding doors
    for (const double x : {38.0, 61.0}) {
        s.fieldBox(x, 50, 21, 36, 0.2);
        s.box(x, 50, 21, 36);
        s.line(x, 50, x + 21, 86);
        s.line(x + 21, 50, x, 86);
        s.disc(x + 10.5, 47, 2.2);
    }
}

void oldPostOffice(Sketch& s)
{
    s.pen(1.6);
    s.field({{16, 40}, {60, 15}, {104, 40}}, 0.14);
    s.close({{16, 40}, {60, 15}, {104, 40}});
    s.box(18, 43, 84, 5);
    s.box(20, 79, 80, 4);
    s.box(14, 83, 92, 4);
    for (const double x : {26.0, 42.0, 78.0, 94.0}) {
        s.fieldBox(x - 3, 50, 6, 27, 0.22);
        s.line(x - 3, 50, x - 3, 77);
        s.line(x + 3, 50, x + 3, 77);
        s.line(x - 5, 49, x + 5, 49);
        s.line(x - 5, 78, x + 5, 78);
    }
    s.arch(52, 68, 61, 78);
    s.pen(1.3); // a letter in the gable
    s.fieldBox(50, 26, 20, 11, 0.25);
    s.box(50, 26, 20, 11);
    s.trace({{50, 26}, {60, 33}, {70, 26}});
}

void saltmarshStudio(Sketch& s)
{
    s.glow(32, 31, 22, 0.35);
    s.pen(1.5);
    s.ring(32, 31, 8.5);
    s.fieldBox(58, 41, 34, 20, 0.16);
    s.box(58, 41, 34, 20);
    s.close({{53, 42}, {64, 27}, {86, 27}, {97, 42}});
    s.window(64, 46, 9, 9);
    s.box(79, 46, 8, 15);
    s.line(54, 62, 96, 62);
    for (const double x : {60.0, 71.0, 80.0, 91.0}) s.line(x, 62, x, 78);
    s.pen(1.3, 0.8);
    for (int row = 0; row < 3; ++row) {
        const double y = 76 + 5 * row;
        for (double x = 14 + 5 * row; x < 96; x += 18) s.bow(x, y, x + 5, y - 3.4, x + 11, y);
    }
    s.pen(1.4);
    s.bow(22, 86, 21, 66, 15, 52);
    s.bow(25, 86, 26, 66, 25, 46);
    s.bow(28, 86, 31, 68, 37, 56);
    s.pen(3.6);
    s.line(15.6, 54, 14.2, 48.5);
    s.line(25, 48, 24.8, 42);
    s.line(36.5, 57.5, 39, 53);
}

void tinRoofRecording(Sketch& s)
{
    s.pen(1.6);
    s.field({{14, 54}, {28, 32}, {92, 32}, {106, 54}}, 0.14);
    s.close({{14, 54}, {28, 32}, {92, 32}, {106, 54}});
    for (int ridge = 1; ridge < 10; ++ridge) {
        s.pen(1.1, 0.7);
        s.line(28 + 6.4 * ridge, 32, 14 + 9.2 * ridge, 54);
    }
    s.pen(1.6);
    s.trace({{22, 54}, {22, 86}, {98, 86}, {98, 54}});
    s.line(12, 86, 108, 86);
    s.box(52, 62, 16, 24);
    s.disc(64.5, 75, 1.3);
    s.window(30, 63, 14, 12);
    s.window(76, 63, 14, 12);
    s.pen(1.3, 0.7); // rain, and how it jumps off
    for (int drop = 0; drop < 10; ++drop) {
        const double x = 20 + 9 * drop;
        const double y = drop % 2 == 0 ? 12 : 18;
        s.line(x, y, x - 2.4, y + 7);
    }
    for (const double x : {36.0, 52.0, 68.0, 84.0}) {
        s.line(x, 29, x - 2.2, 26.6);
        s.line(x + 2, 29, x + 4.2, 26.6);
    }
}

void courtyardTakes(Sketch& s)
{
    s.pen(1.6);
    s.line(12, 86, 108, 86);
    s.line(14, 49, 106, 49);
    s.line(14, 15, 106, 15);
    for (int bay = 0; bay < 4; ++bay) {
        const double x = 16 + 23.0 * bay;
        s.arch(x, x + 19, 63, 86);
        s.fieldBox(x + 1.5, 66, 16, 20, 0.12);
    }
    s.pen(1.2, 0.75);
    for (int bay = 0; bay < 8; ++bay) s.arch(16.5 + 11.4 * bay, 23.7 + 11.4 * bay, 27, 39);
    s.line(14, 42, 106, 42);
    // The tree stands before them.
    s.pen(2.2);
    s.line(60, 86, 60, 60);
    s.line(60, 71, 67, 62);
    s.line(60, 74, 53, 64);
    s.glow(60, 54, 24, 0.55);
    s.disc(60, 50, 10, 0.55);
    s.disc(51, 57, 8, 0.55);
    s.disc(69, 57, 8, 0.55);
}

} // namespace velmora::art::emblem
