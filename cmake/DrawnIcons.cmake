# Gives a target drawings as resources, each with pictures of the sizes that windows mostly ask for: to read a drawing
# takes long enough to be felt at the start. window/drawnIcon makes icons of them.
#
#   zorvo_drawn_icons(TARGET RESOURCE PREFIX prefix SIZES pixels... DRAWINGS "name|file.svg"...)
#
# TARGET has to call Q_INIT_RESOURCE(RESOURCE).
function(zorvo_drawn_icons TARGET RESOURCE)
  cmake_parse_arguments(ARG "" "PREFIX" "SIZES;DRAWINGS" ${ARGN})
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${RESOURCE})
  set(entries)
  set(pictures)
  set(drawings)
  set(arguments)
  foreach(drawing IN LISTS ARG_DRAWINGS)
    string(REPLACE "|" ";" drawing "${drawing}")
    list(GET drawing 0 name)
    list(GET drawing 1 file)
    list(APPEND drawings "${file}")
    string(APPEND entries "<file alias=\"${name}.svg\">${file}</file>\n")
    foreach(size IN LISTS ARG_SIZES)
      set(picture ${folder}/${name}-${size}.png)
      list(APPEND pictures ${picture})
      list(APPEND arguments "--size=${size}" "${file}" "${picture}")
      string(APPEND entries "<file alias=\"${name}-${size}.png\">${picture}</file>\n")
    endforeach()
  endforeach()
  file(CONFIGURE OUTPUT ${folder}/${RESOURCE}.qrc CONTENT
    "<RCC>\n<qresource prefix=\"${ARG_PREFIX}\">\n${entries}</qresource>\n</RCC>\n")
  add_custom_command(OUTPUT ${pictures}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
      $<TARGET_FILE:zorvo-draw> ${arguments}
    DEPENDS zorvo-draw ${drawings}
    COMMENT "Drawing the icons of ${TARGET}"
    VERBATIM)
  qt_add_resources(resource_sources ${folder}/${RESOURCE}.qrc)
  target_sources(${TARGET} PRIVATE ${resource_sources})
endfunction()
