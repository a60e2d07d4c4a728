# The sanitizers of the presets asan and tsan; an empty target otherwise. The product is built with
# them; the tests are linked with what they need and are watched in what they ask of the product: built with them they
# took twice the time.
add_library(tarven_sanitizers INTERFACE)
if(TARVEN_SANITIZE)
  target_compile_options(tarven_sanitizers INTERFACE -fsanitize=${TARVEN_SANITIZE} -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
  target_link_options(tarven_sanitizers INTERFACE -fsanitize=${TARVEN_SANITIZE})
endif()
