find_package(PkgConfig REQUIRED)
pkg_check_modules(XTEST REQUIRED IMPORTED_TARGET xcb xcb-xtest)

# A display server of their own, other programs on it, and a user's hands.
add_library(velmora_test_display STATIC window_test.cpp x_client.cpp x_server.cpp)
target_include_directories(velmora_test_display PUBLIC ${CMAKE_BINARY_DIR}/include/tests)
target_link_libraries(velmora_test_display PUBLIC velmora_toolkit velmora_platform PkgConfig::XTEST GTest::gtest)

velmora_test(test_native_window
  SOURCES test_native_window.cpp test_native_window_input.cpp test_native_window_text.cpp
  LINKS velmora_test_display
  LABELS screen)
