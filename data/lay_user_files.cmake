# Lays skins and a schedule beside the executable, each only where none is there. VELLORA_SCHEDULE
# tells which schedule: starter (the default) or demo.

set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
foreach(skin IN LISTS skins)
  get_filename_component(name "${skin}" NAME)
  if(NOT EXISTS "${folder}/${name}")
    file(COPY "${skin}" DESTINATION "${folder}")
  endif()
endforeach()

if(NOT VELLORA_SCHEDULE)
  set(VELLORA_SCHEDULE starter)
endif()
set(schedule "${folder}/SY.mdb")
if(NOT EXISTS "${schedule}")
  # Made under another name first, so that a broken-off install leaves no half schedule.
  file(REMOVE "${schedule}.new")
  execute_process(COMMAND "${make_schedule}" "${VELLORA_SCHEDULE}" "${schedule}.new"
                  COMMAND_ERROR_IS_FATAL ANY)
  file(RENAME "${schedule}.new" "${schedule}")
endif()
