# Warning and sanitizer settings, applied per target through interface libraries.
add_library(kxc_warnings INTERFACE)
target_compile_options(kxc_warnings INTERFACE -Wall -Wextra -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports false "maybe-uninitialized" warnings inside std::variant's move
  # constructor, and false "restrict" warnings inside std::string concatenation, once inlined
  # at -O2 (GCC bugs 105562 and 105329); keep every other warning fatal.
  target_compile_options(kxc_warnings INTERFACE -Wno-maybe-uninitialized -Wno-restrict)
endif()

add_library(kxc_sanitizers INTERFACE)
if(KXC_SANITIZE)
  target_compile_options(kxc_sanitizers INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kxc_sanitizers INTERFACE -fsanitize=address,undefined)
endif()

# Adds the sources listed in a folder's own CMakeLists.txt to one of the shared libraries,
# so that several folders contribute to kxc_core without editing one shared file.
function(kxc_sources target)
  target_sources(${target} PRIVATE ${ARGN})
endfunction()

# Subdirectories are optional while the tree grows: add each one that exists.
function(kxc_add_subdirectories)
  foreach(dir IN LISTS ARGN)
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt)
      add_subdirectory(${dir})
    endif()
  endforeach()
endfunction()
