#!/usr/bin/env bash
# Tells which kernels of a built binary aren't whole: their vectors must not pass between functions (see
# dsp/run_widest.h), and wide instructions must not stand where a machine without them comes by.
# usage: check_kernels.sh BINARY
set -euo pipefail

LC_ALL=C "${OBJDUMP:-objdump}" --disassemble --demangle --no-show-raw-insn "$1" | awk '
    # Names too intricate for the demangler stay as they are.
    BEGIN {
        wideName = "velmora::detail::runAvx(2|512)<|^_ZN7velmora6detail(7runAvx2|9runAvx512)I"
        baseName = "velmora::detail::runBaseline<|^_ZN7velmora6detail11runBaselineI"
        vector = "__vector\\(|Dv[248]_[dlm]"
        # Designs that are still due when lanes look at their sections; no vector comes near them.
        allowed = "^velmora::Strip(Biquad|FilterSection)::redesign\\(\\)"
    }
    function isKernel(function_) { return function_ ~ wideName || function_ ~ baseName }
    function report(what) { if (!(what in told)) print what; told[what]; faults++ }
    function nameIn(line) { return substr(line, index(line, "<") + 1, length(line) - index(line, "<")) }

    /^[0-9a-f]+ <.*>:$/ {
        name = nameIn($0)
        sub(/>:$/, "", name)
        wide = name ~ wideName
        kernel = isKernel(name)
        kernels += wide
        if (!kernel && name ~ vector) report("out of line: " name)
        next
    }
    !wide && /%[yz]mm/ { report("AVX outside of a kernel: " name) }
    kernel && /\t(call|j[a-z]+) .*<.*>$/ {
        callee = nameIn($0)
        sub(/>$/, "", callee)
        if (callee ~ /velmora/ && !isKernel(callee) && callee !~ allowed)
            report("called by a kernel: " callee "\n    in " name)
    }
    END {
        if (kernels == 0) report("no wide kernel found")
        exit faults > 0
    }'
