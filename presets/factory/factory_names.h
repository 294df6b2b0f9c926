#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace velmora {

inline constexpr std::uint32_t kFactoryPresetCount = 233;

/// Names of the factory presets by id. A preset shows the first 23 bytes.
// clang-format off
inline constexpr std::array<std::string_view, kFactoryPresetCount> kFactoryNames{
    /*   0 */ "Default", "Let's start from scratch", "Drums Init", "Smacka 808 BD", "808 -12RMS",
    /*   5 */ "Kick B52", "Subkick Yama", "Kick Drum", "Pointy Rock Kck", "Aggresive Kick",
    /*  10 */ "Nice Warm Kck", "Kick Ac", "Kick1 -12RMS", "Kick2 -12RMS", "Kick3 -12RMS",
    /*  15 */ "Kick4 -12RMS", "HipHop Kick", "Live Kick1", "Live Kick2", "Tight Kck",
    /*  20 */ "Kck SC Snth Pls", "Kick Sub Mic", "No Snr on Kick", "Kick in", "Kick out",
    /*  25 */ "Kick sub", "Drum Kick Bus", "HipHop Kick", "Snare SM57", "Snare@ak414",
    /*  30 */ "Hipster Snare", "Just Snr @Btm", "Sn Blues", "Snare Drum", "Big Beefy Snare",
    /*  35 */ "Snare Ac", "Snare -12RMS", "High Snare", "Crunchy Snr", "Snare Drum Attack",
    /*  40 */ "Snare Drum", "Snare Bottom Crispy", "Snare Bottom Track", "Snare Bus", "Snare Top Track",
    /*  45 */ "Snare Punch", "Snr HH Supprs 1", "Snr HH Supprs 2", "Less HH on Snr", "Funky HiHat",
    /*  50 */ "Rock HiHat", "Clean Hi-Hat", "HH -12RMS", "Hihat", "Rich Floor Tom",
    /*  55 */ "Expensive Toms", "Legit TomToms", "Toms -12RMS", "Floor Tom 1", "Floor Tom 2",
    /*  60 */ "Toms", "Toms Bus", "OH Close Neu87", "Smashed OH", "Less Snr on OHs",
    /*  65 */ "Dark 70s Room", "Room Mics G.Snr", "Wide Drum OHs", "OHs Open", "Cymbals -12RMS",
    /*  70 */ "OH More Snr", "Less Snr InRoom", "Overheads", "Room Mono Far", "Rooms Close",
    /*  75 */ "Drums OH Bus", "Drums Room Bus", "Live Drum Loop", "Drums Start", "Drum Buss",
    /*  80 */ "Drum Bus", "Reggae Drums", "Add Grit", "Drum Breaks", "Hard Drums",
    /*  85 */ "Rock Buss", "Orch Huge", "Mega Drums", "Bus Init", "Drum Bus Beastie",
    /*  90 */ "Drum Bus De-harsher", "Drum Bus Brightener", "Drum Bus Fattener", "Drum Loop 1", "Drum Loop 2",
    /*  95 */ "Drum Loop 3", "Drum Room Exciter", "Hip Hop Beat", "Bongo", "Conga Hi",
    /* 100 */ "Conga Low", "Congas Atbqs", "MJ CABASSA", "Pandeiro", "Funky Triangle",
    /* 105 */ "Claps -12RMS", "Stereo Claps", "Clap Saturator", "Tamb Saturator", "Tbl Hi",
    /* 110 */ "Tbl Low", "Crush Mic Mono", "Ride Cymbal Heavy", "Bass Init", "Driven 5-string",
    /* 115 */ "Reggae Bass", "Walking Bass", "DeBootcher", "Bass sustain", "Thunder Jazz",
    /* 120 */ "Vintage Bass", "Overdrive bass", "Bass Blues", "Reggae Bas", "Smooth Snth",
    /* 125 */ "Electric Bass", "Synth B -12RMS", "Bass Hugger", "Controlled Bass", "Focused Dist Bass DI",
    /* 130 */ "Sub Clean Bass", "Bass De-pick Attack", "Bass", "Guitar Init", "Guit Reggae",
    /* 135 */ "Piezo Pickup", "Gender Strat", "Rhytm Gtr", "Reggae Gtr", "African DL El",
    /* 140 */ "Nylon", "Overdrive", "Ac Gtr -12RMS", "Acoustic Buss", "Guitar Stereo Grunge",
    /* 145 */ "Funky Strat", "Guitar Steel Arpeggios", "Guitar Steel Strumming", "Acoustic Gtr", "Electric Gtr 1",
    /* 150 */ "Electric Gtr 2", "Keys Init", "Snth Thin&Drive", "Synth -12RMS", "Moog -12RMS",
    /* 155 */ "Pad Thickener", "Any Piano", "Piano -12RMS", "Cinematic Piano", "Electric Piano",
    /* 160 */ "Open Piano", "Rock Piano", "Warm Piano", "Bright Piano", "Dark Piano",
    /* 165 */ "Electric Piano", "Acoustic Piano", "Warm Rhodes", "Organ Saturator", "Strings Init",
    /* 170 */ "String section", "Strings Air", "Brass Power", "Orchestral Buss", "Strings",
    /* 175 */ "Wind Init", "Dirty Horn", "Trumpet", "Old Trumpet", "Sweet Trombone",
    /* 180 */ "Alto Sax", "Tenore Sax", "Less Wind", "Sax Fattener", "Vocal Init",
    /* 185 */ "HiFi Vocal", "Voc Beatter", "Telefunky", "iPhone restore", "FET & Dees",
    /* 190 */ "Opto & Dees", "Female Lead", "Vox", "Rap Vocal", "HipHop Male Voc",
    /* 195 */ "Smooth", "Male Lead", "Voc Female", "Female Bckgrnd", "Female Warm",
    /* 200 */ "Female -12RMS", "Male Warm", "Male Bckgrnd", "Male Rock", "Male Lead",
    /* 205 */ "Male Tracking", "Choir -12RMS", "Modern Vocals", "Vocal Color", "Basic Cntrl",
    /* 210 */ "Direct Vocal", "Voc57", "Custom Deess Chain", "Heavy Vocal", "Rap Vocal",
    /* 215 */ "Vocal Background", "Vocal Bck Saturator", "Vox Track", "BGV Male", "Special Init",
    /* 220 */ "Custom De-esser A", "Custom De-esser B", "De-Breath", "Zappo lighter", "Master1 -18RMS",
    /* 225 */ "Master2 -18RMS", "Auto Pump", "Extra Presence", "High Pressure", "Mix Expander",
    /* 230 */ "Radio Gaga", "Saturation", "Transient Distorted",
};
// clang-format on

} // namespace velmora
