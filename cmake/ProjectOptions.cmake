# Options that hold for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

option(ZORVO_SANITIZE "Build with address and undefined-behaviour sanitizers" OFF)

# Light debug information keeps links short; stack traces stay readable.
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g1")

add_library(project_options INTERFACE)
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Werror
  # GCC 12 sees overlapping copies in optimised text concatenations where there are none.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>)
target_compile_definitions(project_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
target_include_directories(project_options INTERFACE ${CMAKE_SOURCE_DIR})

# A program loads the libraries that it calls, not all that its static libraries might.
target_link_options(project_options INTERFACE -Wl,--as-needed)

if(ZORVO_SANITIZE)
  target_compile_options(project_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# The program folder of a build tree: samples, catalogue files and pictures.
set(ZORVO_PROGRAM_DIR ${CMAKE_BINARY_DIR}/program)
