# Turns the texts of strings/*.txt into constant data for the compiler:
#
#     cmake -DSTRINGS=<directory> -DOUTPUT=<file> -P compile_strings.cmake
#
# Each line holds an id, a blank and a text in quotes; ids ascend. The first line that does not stops the build and is
# named by file and number.

# One entry of each line of FILE, in `ENTRIES`.
function(read_entries FILE)
  file(READ ${FILE} REST)
  set(ENTRIES "")
  set(LAST 0)
  set(NUMBER 0)
  while(NOT REST STREQUAL "")
    math(EXPR NUMBER "${NUMBER} + 1")
    string(FIND "${REST}\n" "\n" END)
    string(SUBSTRING "${REST}" 0 ${END} LINE)
    if(NOT LINE MATCHES "^([1-9][0-9]*) (\"([^\"\\]|\\\\[\"\\])+\")$")
      message(FATAL_ERROR "${FILE}:${NUMBER}: not an id, a blank and a text in quotes: ${LINE}")
    endif()
    if(NOT CMAKE_MATCH_1 GREATER LAST)
      message(FATAL_ERROR "${FILE}:${NUMBER}: id ${CMAKE_MATCH_1} does not follow ${LAST}")
    endif()
    set(LAST ${CMAKE_MATCH_1})
    string(APPEND ENTRIES "    {${CMAKE_MATCH_1}, ${CMAKE_MATCH_2}},\n")
    string(LENGTH "${REST}" LENGTH)
    if(END EQUAL LENGTH)
      set(REST "")
    else()
      math(EXPR NEXT "${END} + 1")
      string(SUBSTRING "${REST}" ${NEXT} -1 REST)
    endif()
  endwhile()
  set(ENTRIES "${ENTRIES}" PARENT_SCOPE)
endfunction()

set(TEXTS "")
set(BLOCKS "")
file(GLOB FILES ${STRINGS}/*.txt)
foreach(FILE ${FILES})
  cmake_path(GET FILE STEM LANGUAGE)
  read_entries(${FILE})
  string(APPEND TEXTS "constexpr StringEntry k${LANGUAGE}[] = {\n${ENTRIES}};\n")
  string(APPEND BLOCKS "    {\"${LANGUAGE}\", k${LANGUAGE}},\n")
endforeach()
file(WRITE ${OUTPUT} "${TEXTS}constexpr StringBlock kStringBlocks[] = {\n${BLOCKS}};\n")
