# Writes the desktop entry of an installed program folder, which names the folder by its full path,
# and the icon that it shows. Both are the program's own and are written anew each time.

set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
configure_file("${icon}" "${folder}/vellora.png" COPYONLY)

# The entry's own rules: a quoted argument escapes " ` $ \ by a backslash, then every backslash of
# a value is doubled, and a percent sign that starts no field code as well.
string(REGEX REPLACE "([\"`$\\\\])" "\\\\\\1" command "${folder}/vellora")
string(REPLACE "\\" "\\\\" command "${command}")
string(REPLACE "%" "%%" command "${command}")
set(command "\"${command}\"")
configure_file("${entry}" "${folder}/vellora.desktop" @ONLY)
