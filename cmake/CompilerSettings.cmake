# Compiler settings that every target of the project shares.
add_library(tintbench_settings INTERFACE)

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(tintbench_settings INTERFACE
    -Wall -Wextra -Wno-missing-field-initializers -Wpedantic -Wconversion -Wshadow
    -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast -Wcast-align -Woverloaded-virtual
    -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(tintbench_settings INTERFACE
      -Wuseless-cast -Wduplicated-cond -Wduplicated-branches -Wlogical-op
      # Optimising, version 12 sees overlapping copies in the standard library's own strings.
      $<$<NOT:$<CONFIG:Debug>>:-Wno-restrict>)
  endif()
  if(TINTBENCH_WARNINGS_AS_ERRORS)
    target_compile_options(tintbench_settings INTERFACE -Werror)
  endif()
  if(TINTBENCH_SANITIZE)
    # The fuzzers see what they reach only in code that is compiled for them, so all of it is.
    target_compile_options(tintbench_settings INTERFACE -O1
      -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
      -fno-omit-frame-pointer)
    target_link_options(tintbench_settings INTERFACE -fsanitize=address,undefined)
  endif()
endif()

# The fast linker where there is one.
find_program(TINTBENCH_LLD ld.lld)
if(TINTBENCH_LLD)
  target_link_options(tintbench_settings INTERFACE -fuse-ld=lld)
endif()

# precompile(TARGET HEADERS...): lets the target's sources find these headers already read, in the
# builds for work. The release build does without, so that it shows an include that is missing.
function(precompile target)
  if(TINTBENCH_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

set(standard_headers <algorithm> <array> <charconv> <cmath> <cstddef> <cstdint> <deque> <functional>
  <limits> <map> <memory> <optional> <set> <span> <string> <string_view> <tuple> <utility> <vector>)
set(widget_headers <QApplication> <QCheckBox> <QComboBox> <QGroupBox> <QLabel> <QLineEdit>
  <QMenuBar> <QMouseEvent> <QPainter> <QPlainTextEdit> <QPushButton> <QTimer> <QVBoxLayout>)

# What ccache needs to be told to keep what is compiled with headers that are read already.
if(TINTBENCH_PRECOMPILE)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(tintbench_settings INTERFACE -fpch-preprocess)
  else()
    target_compile_options(tintbench_settings INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
  endif()
  if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache$")
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros ${CMAKE_CXX_COMPILER_LAUNCHER})
  endif()
endif()
