# clang-tidy over everything that is built, as part of the build.
#
# The sources of a target are read together, as one text: nearly all of clang-tidy's time goes into
# the headers that they share. They are checked again when an object of theirs was made anew.

function(vellora_tidy target)
  get_target_property(sources ${target} SOURCES)
  get_target_property(folder ${target} SOURCE_DIR)
  list(FILTER sources INCLUDE REGEX "^[a-z_]+\\.cpp$")
  list(TRANSFORM sources PREPEND "${folder}/")
  if(NOT sources)
    return()
  endif()
  set(stamp "${CMAKE_BINARY_DIR}/tidy/${target}")
  add_custom_command(OUTPUT "${stamp}"
    COMMAND "${CMAKE_SOURCE_DIR}/scripts/tidy.sh" "${CMAKE_BINARY_DIR}" ${sources}
    COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
    DEPENDS $<TARGET_OBJECTS:${target}>
            "${CMAKE_SOURCE_DIR}/scripts/tidy.sh" "${CMAKE_SOURCE_DIR}/.clang-tidy"
    COMMENT "Checking ${target} with clang-tidy"
    VERBATIM)
  add_custom_target(tidy_${target} ALL DEPENDS "${stamp}")
endfunction()

# Every library and program that is built in a folder or below it.
function(vellora_tidy_below folder)
  get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "^(STATIC_LIBRARY|EXECUTABLE)$")
      vellora_tidy(${target})
    endif()
  endforeach()
  get_property(folders DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
  foreach(below IN LISTS folders)
    vellora_tidy_below("${below}")
  endforeach()
endfunction()
