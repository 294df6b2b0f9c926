# Frame, widgets and the engine chain, in windows in memory.
velmora_test(test_editor_view
  SOURCES test_damage.cpp test_frame.cpp test_widgets.cpp test_menu.cpp test_text_edit.cpp toolkit_leaks.cpp
  LINKS velmora_toolkit velmora_platform)
velmora_test(test_engine_chain SOURCES test_engine_chain.cpp test_editor_in_host.cpp toolkit_leaks.cpp
  LINKS velmora_toolkit velmora_vst24 velmora_host_lib)
