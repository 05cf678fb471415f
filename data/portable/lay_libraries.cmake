# Lays the libraries of `program`, the plugins and translations of Qt that it uses, a Chinese face,
# and the licences of all of them into the program folder. Left out is what every Debian has.

set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
set(plugins
  platforms/libqxcb.so
  platforminputcontexts/libcomposeplatforminputcontextplugin.so
  platforminputcontexts/libibusplatforminputcontextplugin.so
  platforminputcontexts/libfcitx5platforminputcontextplugin.so
  printsupport/libcupsprintersupport.so)
set(face /usr/share/fonts/truetype/wqy/wqy-microhei.ttc)

set(taken "${face}")
foreach(plugin IN LISTS plugins)
  get_filename_component(kind "${plugin}" DIRECTORY)
  file(COPY "${qt_plugins}/${plugin}" DESTINATION "${folder}/plugins/${kind}")
  list(APPEND plugin_files "${qt_plugins}/${plugin}")
endforeach()
file(COPY "${qt_translations}/qtbase_zh_CN.qm" DESTINATION "${folder}/translations")
file(COPY "${face}" DESTINATION "${folder}/fonts")

file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES "${program}"
  MODULES ${plugin_files}
  RESOLVED_DEPENDENCIES_VAR libraries
  POST_EXCLUDE_REGEXES "/ld-linux[^/]*$" "/lib(c|m|dl|rt|pthread|resolv|stdc\\+\\+|gcc_s)\\.so[^/]*$")
foreach(library IN LISTS libraries)
  file(COPY "${library}" DESTINATION "${folder}/lib" FOLLOW_SYMLINK_CHAIN)
endforeach()

foreach(file IN LISTS taken plugin_files libraries)
  file(REAL_PATH "${file}" real)
  execute_process(COMMAND dpkg-query -S "${real}" OUTPUT_VARIABLE owner ERROR_QUIET)
  if(NOT owner)  # known under the merged folder's other name
    string(REGEX REPLACE "^/usr" "" other "${real}")
    execute_process(COMMAND dpkg-query -S "${other}" OUTPUT_VARIABLE owner
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
  string(REGEX REPLACE ":.*" "" package "${owner}")
  configure_file("/usr/share/doc/${package}/copyright" "${folder}/licences/${package}.txt" COPYONLY)
endforeach()
