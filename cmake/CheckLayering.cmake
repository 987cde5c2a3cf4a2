# The system may include host/ and the standard library only: no path that leaves its own folders.
file(GLOB_RECURSE files ${ROOT}/_Spolecny/*.h ${ROOT}/_Spolecny/*.cpp ${ROOT}/TogUtility/*.h ${ROOT}/TogUtility/*.cpp)
foreach(f ${files})
  file(STRINGS ${f} lines REGEX "^[ \t]*#[ \t]*include[ \t]*[\"<](\\.\\./)*(sim|cli|tests)/")
  file(STRINGS ${f} up REGEX "^[ \t]*#[ \t]*include[ \t]*\"(\\.\\./)+(sim|cli|tests|host)/")
  if(lines OR up)
    message(FATAL_ERROR "${f} includes the platform or the console: ${lines}${up}")
  endif()
endforeach()
