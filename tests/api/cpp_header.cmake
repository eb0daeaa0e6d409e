# The C++ header as programs use it: with the shared libraries, in several versions of C++.
add_executable(cpp_header_tests api/cpp_header_test.cpp)
target_link_libraries(
  cpp_header_tests PRIVATE measdata::measdata measdata_test_options GTest::gtest_main
)
if(MEASDATA_KIT)
  target_compile_definitions(cpp_header_tests PRIVATE MEASDATA_TEST_KIT)
  target_link_libraries(cpp_header_tests PRIVATE measdata::kit)
endif()
target_compile_definitions(
  cpp_header_tests PRIVATE MEASDATA_EXAMPLES="${PROJECT_SOURCE_DIR}/examples/data"
)
gtest_discover_tests(cpp_header_tests)

# As C++17 and without exceptions it also runs.
add_executable(cpp_header_17 api/cpp_header_17.cpp)
target_link_libraries(cpp_header_17 PRIVATE measdata::measdata)
set_target_properties(cpp_header_17 PROPERTIES CXX_STANDARD 17 CXX_EXTENSIONS OFF)
if(NOT MSVC)
  target_compile_options(cpp_header_17 PRIVATE -fno-exceptions)
  if(MEASDATA_SANITIZE OR MEASDATA_SANITIZE_THREADS)
    target_link_options(cpp_header_17 PRIVATE ${sanitize})
  endif()
endif()
add_test(NAME cpp_header.17 COMMAND cpp_header_17)

if(UNIX)
  find_program(CLANGXX NAMES clang++ clang++-16 clang++-14)
  set(compilers ${CMAKE_CXX_COMPILER})
  if(CLANGXX)
    list(APPEND compilers ${CLANGXX})
  endif()
  set(warnings -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror)
  foreach(compiler IN LISTS compilers)
    foreach(flags -std=c++17 -std=c++20 -std=c++2b "-std=c++20;-fno-exceptions")
      cmake_path(GET compiler FILENAME name)
      list(JOIN flags "" suffix)
      add_test(NAME cpp_header.${name}${suffix}
               COMMAND ${compiler} ${flags} ${warnings} -fsyntax-only -I${PROJECT_SOURCE_DIR}/api
                       ${CMAKE_CURRENT_SOURCE_DIR}/api/cpp_header_17.cpp
      )
    endforeach()
  endforeach()
endif()

add_test(
  NAME cpp_header.calls_every_function
  COMMAND ${CMAKE_COMMAND} -DAPI=${PROJECT_SOURCE_DIR}/api -P
          ${CMAKE_CURRENT_SOURCE_DIR}/api/cpp_header_names.cmake
)
