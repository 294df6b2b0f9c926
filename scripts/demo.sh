#!/usr/bin/env bash
# Makes a dry recording, renders it through the built plug-in in a few settings and prints what changed.
# Usage: scripts/demo.sh BUILD_FOLDER
set -euo pipefail

build=$(realpath "$1")
results=$build/demo
mkdir -p "$results"

dry=$results/dry.wav
"$build/bin/velmora-demo-source" "$dry"

# render NAME WHAT OPTION...: one setting of the strip.
render() {
    local name=$1 what=$2
    shift 2
    echo
    echo "$what"
    "$build/bin/velmora-render" "$dry" "$results/$name.wav" "$@"
}

render default "The strip as it starts:"
render warm "A hotter preamp, more lows and highs:" \
    --set "Pre:Drive=9" --set "EQ:LO Gain=4" --set "EQ:HI Gain=2"
render tight "Lows filtered, much compression, make-up gain, peaks limited:" \
    --set "Flt:HPF Freq=90" --set "Comp:Threshold=-24" --set "Comp:Ratio=4" --set "Comp:Makeup Gain=6" \
    --set "Lim:Type=BrickWall"
render deessed "A de-esser in the first insert, the fader 3 dB down:" \
    --set "InsX:Type=De-esser" --set "InsX:Prm01=6k" --set "Mstr:Type=Master Control" --set "Mstr:Gain=-3"

cat > "$results/fade.csv" <<'CSV'
time,name,text
0,Mstr:Type,Master Control
0,Mstr:Gain,-40
1,Mstr:Gain,-20
2,Mstr:Gain,-10
3,Mstr:Gain,0
CSV
render fade "A fade-in by automation, in double precision:" --automate "$results/fade.csv" --double

echo
echo "The recordings lie in $results"
echo "The plug-in lies at   $build/velmora_mono.so"
echo "'make install' puts it where hosts look, ~/.vst"
