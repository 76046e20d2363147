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
    target_compile_options(tintbench_settings INTERFACE
      -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tintbench_settings INTERFACE -fsanitize=address,undefined)
  endif()
  if(TINTBENCH_FUZZ)
    # The fuzzer sees what it reaches only in code that is compiled for it, so all of it is.
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
