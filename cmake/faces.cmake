# The face of screens and slips, as the machine that builds has it.
set(faces_folder /usr/share/fonts/truetype/liberation2)
file(GLOB program_faces ${faces_folder}/LiberationSans-*.ttf)
if(NOT program_faces)
  message(FATAL_ERROR "There is no Liberation Sans in ${faces_folder}.")
endif()
