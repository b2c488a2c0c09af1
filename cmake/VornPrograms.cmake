# SPDX-License-Identifier: Apache-2.0
# The programs VornLink installs. Each is installed into bin with
# vorn_install_program(target) and recorded: the AppStream metadata names them,
# and the install checks run each one and look for its manual page
# doc/man/<target>.1.

function(vorn_install_program target)
  get_target_property(output_name ${target} OUTPUT_NAME)
  if(output_name)
    message(FATAL_ERROR "vorn_install_program: ${target} is installed under its target name; drop OUTPUT_NAME")
  endif()
  if(NOT EXISTS "${PROJECT_SOURCE_DIR}/doc/man/${target}.1")
    message(FATAL_ERROR "vorn_install_program: ${target} has no manual page doc/man/${target}.1")
  endif()
  install(TARGETS ${target}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    BUNDLE DESTINATION .)
  set_property(GLOBAL APPEND PROPERTY VORN_INSTALLED_PROGRAMS ${target})
endfunction()

# The recorded programs, in the order they were installed.
function(vorn_installed_programs out_var)
  get_property(programs GLOBAL PROPERTY VORN_INSTALLED_PROGRAMS)
  set(${out_var} ${programs} PARENT_SCOPE)
endfunction()
