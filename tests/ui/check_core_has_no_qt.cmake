# Fails when a file of the portable core (numeric/, lang/, units/, store/)
# includes a Qt header. Run with -DSOURCE_DIR=<top of the sources>.
file(GLOB_RECURSE core_files
  ${SOURCE_DIR}/numeric/*.h ${SOURCE_DIR}/numeric/*.cpp
  ${SOURCE_DIR}/lang/*.h ${SOURCE_DIR}/lang/*.cpp
  ${SOURCE_DIR}/units/*.h ${SOURCE_DIR}/units/*.cpp
  ${SOURCE_DIR}/store/*.h ${SOURCE_DIR}/store/*.cpp)
set(offenders "")
foreach(file IN LISTS core_files)
  file(STRINGS ${file} hits REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](Q[A-Za-z]|qt)")
  if(hits)
    list(APPEND offenders "${file}: ${hits}")
  endif()
endforeach()
list(LENGTH core_files count)
if(offenders)
  message(FATAL_ERROR "core files include Qt headers:\n${offenders}")
endif()
message(STATUS "${count} core files checked: no Qt header included")
