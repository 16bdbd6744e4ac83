# The QML compiler of Qt 6.4 declares a function's variables in the order of their addresses, which is another one in
# each run. Sorted, two builds are the same. For packages: it starts one more process for each QML file.
get_target_property(_compiler Qt6::qmlcachegen LOCATION)
set(_sorting ${PROJECT_BINARY_DIR}/qmlcachegen-sorted)
file(CONFIGURE OUTPUT ${_sorting} @ONLY CONTENT [=[#!/bin/sh
"@_compiler@" "$@" || exit
while [ $# -gt 0 ] && [ "$1" != -o ]; do shift; done
[ $# -lt 2 ] || exec perl -i -ne 'if (/^[A-Za-z_][^;(){}=]*[ *&]r\d+_\d+;$/) { push @run, $_ } else { print sort(@run), $_; @run = () }' "$2"
]=])
file(CHMOD ${_sorting} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
set_target_properties(Qt6::qmlcachegen PROPERTIES IMPORTED_LOCATION ${_sorting} IMPORTED_LOCATION_NONE ${_sorting})
