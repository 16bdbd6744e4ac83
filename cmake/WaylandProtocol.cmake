# add_protocol_code(TARGET XML): the client's code of a Wayland protocol, from its description, in a target. WAYLAND_SCANNER
# is the program that writes it.
function(add_protocol_code target xml)
  get_filename_component(_name ${xml} NAME_WE)
  set(_base ${CMAKE_CURRENT_BINARY_DIR}/${_name})
  add_custom_command(OUTPUT ${_base}-client-protocol.h ${_base}-protocol.c
    COMMAND ${WAYLAND_SCANNER} client-header ${xml} ${_base}-client-protocol.h
    COMMAND ${WAYLAND_SCANNER} private-code ${xml} ${_base}-protocol.c
    DEPENDS ${xml})
  target_sources(${target} PRIVATE ${_base}-client-protocol.h ${_base}-protocol.c)
endfunction()
