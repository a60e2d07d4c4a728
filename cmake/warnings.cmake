# The one place where warnings and the strict Qt rules are set; every target of ours links it.
add_library(tarven_warnings INTERFACE)
target_compile_options(tarven_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wunused -Wold-style-cast -Wformat=2
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>
  # A joined file is no header, though the compiler takes the files in it for headers.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wno-subobject-linkage>
  $<$<BOOL:${TARVEN_WERROR}>:-Werror>)
target_compile_definitions(tarven_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_URL_CAST_FROM_STRING QT_NO_JAVA_STYLE_ITERATORS
  QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
