# Compiler flags shared by every target of the project.
function(commonkit_set_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${COMMONKIT_WERROR}>:/WX>)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow=local
      -Wnon-virtual-dtor -Wcast-align -Woverloaded-virtual
      $<$<BOOL:${COMMONKIT_WERROR}>:-Werror>
      # GCC's flow analysis gives false positives under -fsanitize.
      $<$<AND:$<BOOL:${COMMONKIT_SANITIZE}>,$<CXX_COMPILER_ID:GNU>>:-Wno-maybe-uninitialized>)
  endif()
endfunction()

if(COMMONKIT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(COMMONKIT_TSAN)
  if(COMMONKIT_SANITIZE)
    message(FATAL_ERROR "COMMONKIT_TSAN and COMMONKIT_SANITIZE cannot be combined")
  endif()
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
