# Every flag of the project stands here.

include_guard()
find_package(Threads REQUIRED)

function(tarnook_flags target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
  # A call inside the library goes straight to its function: nobody replaces one from outside.
  target_compile_options(${target} PRIVATE -fno-semantic-interposition -fvisibility-inlines-hidden)
  # Messages and debug information name files from the project's folder, as clones share compiled files:
  # the compiler is given absolute paths, or by ccache relative ones.
  target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -ffile-prefix-map=../../=
                         -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(${target} PRIVATE -Wthread-safety)
  elseif(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # With optimisation, g++ 12 finds overlaps and overruns in std::string's own copying that aren't there.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow
                           -Wno-stringop-overread)
  endif()
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/engine)
endfunction()

# A third of the time a source of the library takes to compile goes into the standard library's headers, and
# more than half of a program's into those of its options. The debug preset does without, so that a forgotten
# include is found there (and by clang-tidy).
option(TARNOOK_PCH "sources share precompiled headers" OFF)
if(TARNOOK_PCH)
  file(TOUCH ${PROJECT_BINARY_DIR}/standard_headers.cpp)
  add_library(standard_headers OBJECT ${PROJECT_BINARY_DIR}/standard_headers.cpp)
  tarnook_flags(standard_headers)
  target_compile_options(standard_headers PRIVATE -fno-exceptions)
  target_precompile_headers(standard_headers PRIVATE <algorithm> <array> <cstdint> <cstdio> <cstring> <functional>
                            <memory> <optional> <string> <string_view> <utility> <vector>)
endif()

# tarnook_part(NAME): one room of the shared library, made of the .cpp files of this folder (and, for
# the platform, of the folders below it). Rooms throw nothing.
#
# With CMAKE_UNITY_BUILD eight sources are compiled as one, which saves more than half of the time. Runners
# stand alone: each names its functions after the script's words.
function(tarnook_part name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_library(${name} OBJECT ${sources})
  set(runners ${sources})
  list(FILTER runners INCLUDE REGEX "_Runner\\.cpp$")
  set_source_files_properties(${runners} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  tarnook_flags(${name})
  target_compile_options(${name} PRIVATE -fno-exceptions)
  if(TARNOOK_PCH)
    target_precompile_headers(${name} REUSE_FROM standard_headers)
  endif()
  set_property(GLOBAL APPEND PROPERTY TARNOOK_PARTS ${name})
endfunction()

# tarnook_program(NAME [LIBRARIES]): a program over the shared library, made of this folder's .cpp files.
# The target `programs` builds all of them and nothing else.
add_custom_target(programs)
function(tarnook_program name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_executable(${name} ${sources})
  tarnook_flags(${name})
  target_link_libraries(${name} PRIVATE TarnookDLL ${ARGN})
  if(CMAKE_BUILD_TYPE STREQUAL "Debug") # under the sanitizers, too: the reading of options takes long to optimize
    target_compile_options(${name} PRIVATE -O0)
  endif()
  if(TARNOOK_PCH)
    target_precompile_headers(${name} PRIVATE <CLI/CLI.hpp>)
  endif()
  add_dependencies(programs ${name})
endfunction()
