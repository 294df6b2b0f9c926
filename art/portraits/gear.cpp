#include "art/portraits/emblems.h"

#include <cmath>

// Studios shown by a thing that stands in them.
namespace velmora::art::emblem {

void levelBench(Sketch& s)
{
    s.pen(1.7);
    s.fieldBox(29, 16, 62, 50, 0.12, 4);
    s.box(29, 16, 62, 50, 4);
    s.fieldBox(35, 21, 50, 29, 0.16, 2);
    s.box(35, 21, 50, 29, 2);
    s.pen(1.4);
    s.arc(60, 58, 30, -40, 40);
    for (int mark = 0; mark < 9; ++mark) {
        const double degrees = -40 + 10.0 * mark;
        const Spot inner = onCircle(60, 58, 30, degrees);
        const Spot outer = onCircle(60, 58, mark % 2 == 0 ? 34 : 32, degrees);
        s.line(inner.x, inner.y, outer.x, outer.y);
    }
    s.pen(1.8);
    s.line(60, 50, 71, 28);
    s.pen(1.4);
    for (const double x : {42.0, 60.0, 78.0}) s.ring(x, 58, 3.6);
    s.pen(1.8);
    s.fieldBox(14, 69, 92, 5, 0.3);
    s.box(14, 69, 92, 5);
    s.line(22, 74, 22, 88);
    s.line(98, 74, 98, 88);
    s.pen(1.2, 0.7);
    s.line(22, 82, 98, 82);
}

void keyholeAudio(Sketch& s)
{
    constexpr double kX = 60;
    constexpr double kY = 40;
    s.glow(kX, 48, 34, 0.4);
    s.pen(1.8);
    s.box(40, 12, 40, 74, 20);
    s.disc(kX, kY, 10, 0.85);
    s.field({{56, 46}, {64, 46}, {69, 70}, {51, 70}}, 0.85);
    s.pen(1.5, 0.85);
    for (const double radius : {28.0, 36.0, 44.0}) {
        s.arc(kX, 48, radius, 62, 118);
        s.arc(kX, 48, radius, 242, 298);
    }
    s.disc(kX, 20, 1.6);
    s.disc(kX, 79, 1.6);
}

void cassetteKitchen(Sketch& s)
{
    s.pen(1.6);
    s.line(14, 14, 106, 14);
    s.line(30, 14, 30, 22); // a pan and a ladle on the rail
    s.ring(30, 28.5, 6.5);
    s.line(50, 14, 50, 27);
    s.arc(50, 27, 4.5, 90, 270);
    s.line(45.5, 27, 54.5, 27);
    s.line(72, 14, 72, 21);
    s.fieldBox(66, 21, 12, 11, 0.3, 1.5);
    s.box(66, 21, 12, 11, 1.5);
    s.line(92, 14, 92, 20);
    s.bow(92, 20, 97, 27, 92, 33);
    s.bow(92, 20, 87, 27, 92, 33);
    s.pen(1.8);
    s.fieldBox(18, 40, 84, 47, 0.12, 4);
    s.box(18, 40, 84, 47, 4);
    s.pen(1.4);
    s.box(25, 45, 70, 28, 2);
    s.line(31, 50, 89, 50);
    s.box(36, 54, 48, 14, 7);
    for (const double x : {45.0, 75.0}) {
        s.ring(x, 61, 4.6);
        s.disc(x, 61, 1.8);
    }
    s.fieldBox(54, 57, 12, 8, 0.4);
    s.trace({{34, 87}, {38, 77}, {82, 77}, {86, 87}});
}

void grindstone(Sketch& s)
{
    constexpr double kX = 52;
    constexpr double kY = 46;
    s.pen(1.7);
    s.disc(kX, kY, 30, 0.14);
    s.ring(kX, kY, 30);
    s.ring(kX, kY, 6);
    s.disc(kX, kY, 2.4);
    s.pen(1.1, 0.5);
    s.ring(kX, kY, 25);
    for (int dent = 0; dent < 24; ++dent) {
        const Spot inner = onCircle(kX, kY, dent % 2 == 0 ? 11 : 18, 15.0 * dent);
        const Spot outer = onCircle(kX, kY, dent % 2 == 0 ? 14 : 21, 15.0 * dent + 3);
        s.line(inner.x, inner.y, outer.x, outer.y);
    }
    s.pen(2);
    s.trace({{32, 87}, {kX, kY + 6}, {72, 87}});
    s.line(38, 75, 66, 75);
    s.pen(1.6);
    s.line(12, 87, 108, 87);
    const Spot touch = onCircle(kX, kY, 30, 75);
    s.pen(2.4);
    s.line(touch.x, touch.y, 106, 50);
    s.glow(touch.x, touch.y, 16, 0.7);
    s.pen(1.3, 0.9);
    for (int spark = 0; spark < 9; ++spark) {
        const double degrees = 128 + 9.0 * spark;
        const double reach = 12 + 5.0 * ((spark * 5) % 4);
        const Spot start = onCircle(touch.x, touch.y, reach - 5, degrees);
        const Spot end = onCircle(touch.x, touch.y, reach, degrees);
        s.line(start.x, start.y, end.x, end.y);
    }
}

void valveCupboard(Sketch& s)
{
    s.pen(1.7);
    s.fieldBox(34, 12, 52, 74, 0.1);
    s.box(34, 12, 52, 74);
    s.close({{34, 12}, {17, 18}, {17, 88}, {34, 86}});
    s.close({{86, 12}, {103, 18}, {103, 88}, {86, 86}});
    s.disc(21, 53, 1.6);
    s.disc(99, 53, 1.6);
    for (const double shelf : {46.0, 80.0}) {
        s.pen(1.6);
        s.line(34, shelf, 86, shelf);
        for (const double x : {44.0, 60.0, 76.0}) {
            s.glow(x, shelf - 14, 11, 0.6);
            s.pen(1.4);
            s.arch(x - 5, x + 5, shelf - 20, shelf - 6);
            s.fieldBox(x - 5, shelf - 6, 10, 6, 0.4);
            s.box(x - 5, shelf - 6, 10, 6);
            s.pen(1.2);
            s.trace({{x - 2, shelf - 7}, {x - 2, shelf - 17}, {x + 2, shelf - 17}, {x + 2, shelf - 7}});
        }
    }
}

void fieldKit(Sketch& s)
{
    s.pen(1.2, 0.55);
    s.bow(12, 58, 34, 36, 58, 56);
    s.bow(46, 50, 76, 30, 108, 54);
    s.pen(1.7);
    s.fieldBox(22, 52, 54, 31, 0.16, 3);
    s.box(22, 52, 54, 31, 3);
    s.reel(36, 63, 8);
    s.reel(58, 63, 8);
    s.pen(1.3);
    s.line(36, 71, 58, 71);
    for (const double x : {30.0, 38.0, 46.0}) s.disc(x, 77.5, 1.7);
    s.box(54, 74.5, 16, 6);
    s.pen(1.6);
    s.bow(24, 52, 49, 22, 74, 52); // strap
    s.line(93, 87, 86, 36);
    s.pen(1.5);
    s.fieldBox(66, 18, 34, 15, 0.35, 7.5);
    s.box(66, 18, 34, 15, 7.5);
    s.pen(1, 0.6);
    for (double x = 72; x < 96; x += 4) s.line(x, 19.5, x - 2, 31.5);
    s.pen(1.4);
    s.line(86, 36, 83, 33);
    s.line(12, 87, 108, 87);
    for (const double x : {15.0, 82.0, 101.0}) {
        s.line(x, 87, x - 2.5, 80);
        s.line(x + 1, 87, x + 1, 78);
        s.line(x + 2, 87, x + 5, 81);
    }
}

/// Nine modules side by side.
void makersRack(Sketch& s)
{
    s.pen(1.8);
    s.box(12, 18, 96, 64, 2);
    for (const double x : {17.0, 103.0}) {
        s.disc(x, 25, 1.6);
        s.disc(x, 75, 1.6);
    }
    for (int module = 0; module < 9; ++module) {
        const double x = 21.5 + 8.7 * module;
        const double centre = x + 3.7;
        s.fieldBox(x, 22, 7.4, 56, module % 2 == 0 ? 0.26 : 0.14);
        s.pen(1);
        for (int knob = 0; knob < 3; ++knob) {
            const double y = 33 + 12.5 * knob;
            const Spot tip = onCircle(centre, y, 2.6, -110 + 70.0 * ((module * 2 + knob * 3) % 5));
            s.ring(centre, y, 2.6);
            s.line(centre, y, tip.x, tip.y);
        }
        s.disc(centre, 71, 1.3);
    }
    s.glow(60, 48, 46, 0.22);
}

} // namespace velmora::art::emblem
