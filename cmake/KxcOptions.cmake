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
if(KXC_FUZZ)
  # Every library of the fuzz build carries libFuzzer's coverage and the sanitizers; the
  # targets add the fuzzer's main when they link.
  target_compile_options(kxc_sanitizers INTERFACE -fsanitize=fuzzer-no-link,address,undefined
    -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kxc_sanitizers INTERFACE -fsanitize=address,undefined)
elseif(KXC_SANITIZE)
  target_compile_options(kxc_sanitizers INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kxc_sanitizers INTERFACE -fsanitize=address,undefined)
endif()

# kxc_library(TARGET FOLDER <folder> [ROOT <dir>] [FILES_ONLY] [SUBFOLDERS <dirs>...]
#             SOURCES <files relative to the folder>... [PUBLIC <libs>...] [PRIVATE <libs>...])
# A static library built from the listed sources of ROOT/FOLDER (ROOT defaults to src/). Its
# headers are reachable as "<folder>/<file>.h", and only by the targets that link it: its
# include root is a folder of the build tree that holds a link to its own source folder and
# nothing else. So a file that includes a header of a library it does not link (a floor above
# it) fails to compile. FILES_ONLY links the folder's own files (and the SUBFOLDERS named)
# instead of the whole folder, for a folder whose other subfolders are libraries of their own.
function(kxc_library target)
  cmake_parse_arguments(L "FILES_ONLY" "FOLDER;ROOT" "SOURCES;SUBFOLDERS;PUBLIC;PRIVATE" ${ARGN})
  if(NOT L_ROOT)
    set(L_ROOT ${PROJECT_SOURCE_DIR}/src)
  endif()
  set(source_dir ${L_ROOT}/${L_FOLDER})
  list(TRANSFORM L_SOURCES PREPEND ${source_dir}/)
  add_library(${target} STATIC ${L_SOURCES})
  string(REGEX REPLACE "^kxc_" "" alias ${target})
  add_library(kxc::${alias} ALIAS ${target})

  set(include_root ${PROJECT_BINARY_DIR}/include/${target})
  set(link ${include_root}/${L_FOLDER})
  if(L_FILES_ONLY)
    file(MAKE_DIRECTORY ${link})
    file(GLOB headers CONFIGURE_DEPENDS LIST_DIRECTORIES false ${source_dir}/*.h)
    foreach(entry IN LISTS headers L_SUBFOLDERS)
      if(NOT IS_ABSOLUTE ${entry})
        set(entry ${source_dir}/${entry})
      endif()
      get_filename_component(name ${entry} NAME)
      if(NOT EXISTS ${link}/${name})
        file(CREATE_LINK ${entry} ${link}/${name} SYMBOLIC)
      endif()
    endforeach()
  else()
    get_filename_component(parent ${link} DIRECTORY)
    file(MAKE_DIRECTORY ${parent})
    if(NOT EXISTS ${link})
      file(CREATE_LINK ${source_dir} ${link} SYMBOLIC)
    endif()
  endif()
  target_include_directories(${target} PUBLIC ${include_root})
  target_link_libraries(${target} PUBLIC ${L_PUBLIC} kxc_sanitizers PRIVATE ${L_PRIVATE}
                        kxc_warnings)
endfunction()
