# The layers of the program, checked on its sources: every dependency points
# down, desktop/ -> screens/ -> the logic folders -> shell/, and no Qt header
# is included below desktop/. Run with cmake -DSOURCE_DIR=<tree> [-DSTAMP=<file>]
# -P CheckLayers.cmake; a wrong include ends it with an error naming the file,
# the line and the rule.
if(NOT SOURCE_DIR)
  message(FATAL_ERROR "CheckLayers: SOURCE_DIR is not set")
endif()

set(logic_folders shell input worktable templates columns translation standlist location)
set(violations "")

# check(<folder> <regex of a forbidden include> <why>)
function(check folder forbidden why)
  file(GLOB_RECURSE sources "${SOURCE_DIR}/src/${folder}/*.h" "${SOURCE_DIR}/src/${folder}/*.cpp")
  foreach(source ${sources})
    file(STRINGS "${source}" lines REGEX "^[ \t]*#[ \t]*include")
    foreach(line ${lines})
      if(line MATCHES "${forbidden}")
        file(RELATIVE_PATH relative "${SOURCE_DIR}" "${source}")
        string(STRIP "${line}" line)
        list(APPEND violations "${relative}: ${line}  (${why})")
      endif()
    endforeach()
  endforeach()
  set(violations "${violations}" PARENT_SCOPE)
endfunction()

set(qt_header "include[ \t]*<Q")
foreach(folder ${logic_folders})
  check(${folder} "include[ \t]*[\"<](screens|desktop)/" "the logic library does not see the screens or the desktop")
  check(${folder} "${qt_header}" "only desktop/ includes Qt")
endforeach()
# The shell is the bottom layer: it sees nothing but itself.
check(shell "include[ \t]*[\"<](input|worktable|templates|columns|translation|standlist|location)/"
      "the shell sees nothing above it")
check(screens "include[ \t]*[\"<]desktop/" "the screens do not see the desktop")
check(screens "${qt_header}" "only desktop/ includes Qt")

if(violations)
  list(JOIN violations "\n  " text)
  message(FATAL_ERROR "Includes against the layers:\n  ${text}")
endif()
if(STAMP)
  file(TOUCH "${STAMP}")
endif()
