# clang-tidy over everything that is built, as part of the build. Checked again is what was made anew.

function(vellora_tidy target)
  get_target_property(folder ${target} BINARY_DIR)
  set(source "${folder}/CMakeFiles/${target}.dir/Unity/unity_0_cxx.cxx")
  set(stamp "${CMAKE_BINARY_DIR}/tidy/${target}")
  add_custom_command(OUTPUT "${stamp}"
    COMMAND clang-tidy --quiet -p "${CMAKE_BINARY_DIR}" --extra-arg=-Wno-unknown-warning-option
            "${source}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
    DEPENDS $<TARGET_OBJECTS:${target}> "${CMAKE_SOURCE_DIR}/.clang-tidy"
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
