# Address and undefined-behaviour sanitizers for the asan preset; an empty target otherwise.
add_library(tarven_sanitizers INTERFACE)
if(TARVEN_SANITIZE)
  target_compile_options(tarven_sanitizers INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(tarven_sanitizers INTERFACE -fsanitize=address,undefined)
endif()
