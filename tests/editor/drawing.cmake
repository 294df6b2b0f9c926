# Controls and drawing; neither needs a display.
velmora_test(test_seam_controls SOURCES test_seam_controls.cpp LINKS velmora_seam velmora_params velmora_presets)
velmora_test(test_drawing
  SOURCES test_bitmaps.cpp test_drawing.cpp test_drawn_text.cpp test_trampolines.cpp png_bytes.cpp toolkit_leaks.cpp
  LINKS velmora_toolkit)
# The toolkit in a library that is linked as the plug-in is. A sanitizer's runtime would be on its link line.
if(NOT VELMORA_SANITIZE AND CMAKE_READELF)
  add_library(toolkit_sample MODULE toolkit_sample.cpp)
  target_link_libraries(toolkit_sample PRIVATE velmora_toolkit)
  target_link_options(toolkit_sample PRIVATE
    LINKER:--exclude-libs,ALL -static-libstdc++ -static-libgcc LINKER:-z,defs)
  velmora_test(test_lazy_toolkit SOURCES test_lazy_toolkit.cpp LINKS velmora_test_support)
  target_compile_definitions(test_lazy_toolkit PRIVATE
    VELMORA_TOOLKIT_SAMPLE="$<TARGET_FILE:toolkit_sample>" VELMORA_READELF="${CMAKE_READELF}")
  add_dependencies(test_lazy_toolkit toolkit_sample)
endif()
