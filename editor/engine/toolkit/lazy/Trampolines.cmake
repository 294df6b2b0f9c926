# velmora_trampolines(FOLDER LISTS...): writes trampolines.S, where every function of the lists jumps through a
# slot, and lazy_rows.inc, the rows of the table that fills the slots.
function(velmora_trampolines folder)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    set(jump "    jmp *velmora_lazy_slots+@OFFSET@(%rip)\n")
    set(missing "    mov $@INDEX@, %edi\n    jmp velmora_lazy_missing\n")
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
    set(jump "    adrp x16, velmora_lazy_slots+@OFFSET@\n    ldr x16, [x16, :lo12:velmora_lazy_slots+@OFFSET@]\n    br x16\n")
    set(missing "    mov w0, @INDEX@\n    b velmora_lazy_missing\n")
  else()
    message(FATAL_ERROR "no trampolines for ${CMAKE_SYSTEM_PROCESSOR}")
  endif()

  set(index 0)
  set(code "")
  set(slots "")
  set(rows "")
  foreach(list IN LISTS ARGN)
    file(STRINGS ${list} names)
    list(POP_FRONT names library)
    foreach(name IN LISTS names)
      math(EXPR OFFSET "${index} * 8")
      set(INDEX ${index})
      string(CONFIGURE "${jump}" body @ONLY)
      string(CONFIGURE "${missing}" stub @ONLY)
      string(APPEND code
        "    .globl ${name}\n    .hidden ${name}\n    .type ${name}, %function\n${name}:\n${body}"
        "    .size ${name}, . - ${name}\n.Lmissing${index}:\n${stub}")
      string(APPEND slots "    .quad .Lmissing${index}\n")
      string(APPEND rows "{\"${library}\", \"${name}\"},\n")
      math(EXPR index "${index} + 1")
    endforeach()
  endforeach()

  set(assembly
    "    .text\n    .balign 16\n${code}\n"
    "    .data\n    .balign 8\n    .globl velmora_lazy_slots\n    .hidden velmora_lazy_slots\n"
    "    .type velmora_lazy_slots, %object\nvelmora_lazy_slots:\n${slots}"
    "    .size velmora_lazy_slots, . - velmora_lazy_slots\n\n"
    "    .section .note.GNU-stack, \"\", %progbits\n")
  string(CONCAT assembly ${assembly})
  file(CONFIGURE OUTPUT ${folder}/trampolines.S CONTENT "${assembly}" @ONLY)
  file(CONFIGURE OUTPUT ${folder}/lazy_rows.inc CONTENT "${rows}" @ONLY)
endfunction()
