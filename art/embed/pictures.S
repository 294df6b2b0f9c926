/* All pictures, one behind the other. */
    .section .rodata.velmora_pictures, "a", @progbits
    .balign 16
    .globl velmora_pictures_begin
    .hidden velmora_pictures_begin
    .type velmora_pictures_begin, @object
velmora_pictures_begin:
    .incbin "pictures.bin"
    .size velmora_pictures_begin, . - velmora_pictures_begin

    .section .note.GNU-stack, "", @progbits
