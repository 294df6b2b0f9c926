# The prefix is the folder that hosts look into, and the plug-in lies straight in it.
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
  set(CMAKE_INSTALL_PREFIX $ENV{HOME}/.vst CACHE PATH "Folder that receives the plug-in" FORCE)
endif()

if(TARGET velmora_mono)
  install(TARGETS velmora_mono LIBRARY DESTINATION . RUNTIME DESTINATION .)
endif()

# Takes away what the last install from this build put in place.
add_custom_target(uninstall
  COMMAND ${CMAKE_COMMAND} -DMANIFEST=${CMAKE_BINARY_DIR}/install_manifest.txt
          -P ${CMAKE_SOURCE_DIR}/cmake/InstallRemove.cmake
  VERBATIM)
