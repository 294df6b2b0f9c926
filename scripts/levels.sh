#!/usr/bin/env bash
# Puts the demo recording through every module variant alone and prints a Markdown table of levels and gain
# reductions. Usage: scripts/levels.sh BUILD_FOLDER > docs/levels.md
set -euo pipefail

build=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
dry=$folder/dry.wav
"$build/bin/velmora-demo-source" "$dry" > "$folder/source.txt"

# The whole rack off, so that each row hears one module.
off=("Pre:Type=-" "Flt:Type=-" "Gate:Type=-" "Comp:Type=-" "EQ:Type=-" "Lim:Type=-" "Mstr:Type=-")

# row NAME SETTING...: one line of the table.
row() {
    local name=$1 options=() setting line
    shift
    for setting in "${off[@]}" "$@"; do options+=(--set "$setting"); done
    line=$("$build/bin/velmora-render" "$dry" "$folder/out.wav" "${options[@]}" --side-chain "$dry" --double | tail -n 1)
    local figures
    figures=$(sed -E 's/.*peak ([^ ]+) dB, RMS ([^ ]+) dB, gain reduction ([^ ]+) dB.*/\1 | \2 | \3/' <<< "$line")
    local settings=""
    for setting in "$@"; do settings+="${settings:+, }$setting"; done
    echo "| $name | ${settings:-all modules off} | $figures |"
}

cat <<TEXT
# Levels

The demo recording (voice and drums, 48 kHz) through each variant alone, every other module off, in double precision;
the recording is its own side chain.
Gain reduction is the largest reading of the total gain-reduction meter; expander, gate, ducker, de-esser, de-hummer
and dynamic EQ don't count towards it. Made by \`scripts/levels.sh build/release\`.

| module | settings | peak dB | RMS dB | gain reduction dB |
|---|---|---|---|---|
TEXT
row "Nothing"
row "Gain" "Pre:Type=Gain" "Pre:Gain=6"
row "Gain, automated" "Pre:Type=Gain" "Pre:AutoIn=1" "Pre:RefLevel=-18"
row "Pre 60s" "Pre:Type=Pre 60s"
row "Pre 60s, driven" "Pre:Type=Pre 60s" "Pre:Drive=15"
row "Pre 70s" "Pre:Type=Pre 70s"
row "Pre 70s, driven" "Pre:Type=Pre 70s" "Pre:Drive=15"
row "Pre 80s" "Pre:Type=Pre 80s"
row "Pre 80s, driven" "Pre:Type=Pre 80s" "Pre:Drive=15"
row "ADC 90s" "Pre:Type=ADC 90s"
row "ADC 90s, driven" "Pre:Type=ADC 90s" "Pre:Drive=15"
row "Basic Filters" "Flt:Type=Basic Filters" "Flt:HPF Freq=100" "Flt:LPF Freq=8k"
row "Pro Filters" "Flt:Type=Pro Filters" "Flt:Parametric Type=Peak" "Flt:Parametric Freq=300" "Flt:Parametric Gain=-9"
row "S.C. Filters, monitored" "Flt:Type=S.C. Filters" "Flt:HPF Freq=1k" "Flt:Monitor=Monitor"
row "Expander" "Gate:Type=Expander" "Gate:Threshold=-25" "Gate:Ratio=2.0" "Gate:Range=-oo"
row "Gate" "Gate:Type=Gate" "Gate:Threshold=-20" "Gate:Range=-40"
row "Ducker" "Gate:Type=Ducker" "Gate:Threshold=-25" "Gate:Range=-12"
row "Opto Levelor" "Comp:Type=Opto Levelor" "Comp:Threshold=-30" "Comp:Ratio=4"
row "FET Levelor" "Comp:Type=FET Levelor" "Comp:Threshold=-30" "Comp:Ratio=4"
row "VCA Levelor" "Comp:Type=VCA Levelor" "Comp:Threshold=-30" "Comp:Ratio=4"
row "Sorrel" "EQ:Type=Sorrel" "EQ:LO Gain=6" "EQ:HI Gain=6"
row "Tamarin" "EQ:Type=Tamarin" "EQ:LO Gain=6" "EQ:HI Gain=6"
row "Juniper" "EQ:Type=Juniper" "EQ:LO Gain=6" "EQ:HI Gain=6"
row "Opto Lim" "Lim:Type=Opto Lim" "Lim:Ceiling=-12"
row "VCA Lim" "Lim:Type=VCA Lim" "Lim:Ceiling=-12"
row "BrickWall" "Lim:Type=BrickWall" "Lim:Ceiling=-12"
row "Saturator" "Lim:Type=Saturator" "Lim:Ceiling=-12"
row "Master Control" "Mstr:Type=Master Control" "Mstr:Gain=-6"
row "De-esser" "InsX:Type=De-esser" "InsX:Prm03=80"
row "De-hummer" "InsX:Type=De-hummer" "InsX:Prm03=-48"
row "Marlow" "InsX:Type=Marlow" "InsX:Prm04=-12" "InsX:Prm05=3"
