#pragma once

#include "art/portraits/sketch.h"

/// One emblem for each studio, in a field from (12, 10) to (108, 88).
namespace velmora::art::emblem {

void harbourLoft(Sketch& s);
void studioVierzehn(Sketch& s);
void coalCellar(Sketch& s);
void birchRoom(Sketch& s);
void levelBench(Sketch& s);
void ninthFloorBeats(Sketch& s);
void keyholeAudio(Sketch& s);
void barnDoorSound(Sketch& s);
void cornerFlat(Sketch& s);
void oldPostOffice(Sketch& s);
void saltmarshStudio(Sketch& s);
void tinRoofRecording(Sketch& s);
void velvetStairwell(Sketch& s);
void longHall(Sketch& s);
void cassetteKitchen(Sketch& s);
void dubBasement(Sketch& s);
void grindstone(Sketch& s);
void stageSix(Sketch& s);
void plainPlaster(Sketch& s);
void courtyardTakes(Sketch& s);
void valveCupboard(Sketch& s);
void fieldKit(Sketch& s);
void makersRack(Sketch& s);

} // namespace velmora::art::emblem
