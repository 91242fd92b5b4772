# A floor is one static library of all the sources in a folder and its forms/ folder.
#
#   zorvo_floor(NAME LIBS lib...)
function(zorvo_floor NAME)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
    ${CMAKE_CURRENT_SOURCE_DIR}/forms/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/forms/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(zorvo_${NAME} STATIC ${sources} ${CMAKE_SOURCE_DIR}/cmake/empty.cpp)
  target_link_libraries(zorvo_${NAME} PUBLIC project_options ${ARG_LIBS})
endfunction()

# The unit tests of a floor: one program of all tests/NAME/*_test.cpp.
#
#   zorvo_unit_tests(NAME LIBS lib...)
function(zorvo_unit_tests NAME)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS
    ${CMAKE_CURRENT_SOURCE_DIR}/${NAME}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${NAME}/*.h)
  # What all test programs share stands beside the tests of the floor that is named alike.
  get_target_property(shared zorvo_testing SOURCES)
  list(REMOVE_ITEM sources ${shared})
  if(NOT sources)
    return()
  endif()
  string(REPLACE "/" "_" target test_${NAME})
  add_executable(${target} ${sources})
  target_link_libraries(${target} PRIVATE zorvo_testing ${ARG_LIBS} GTest::gmock)
  add_test(NAME ${NAME} COMMAND ${target})
  set_tests_properties(${NAME} PROPERTIES LABELS unit TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
