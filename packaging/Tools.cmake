# What accessory-tools has beside the programs: completion for two shells, and the simulator as a service of the session.
set(completion "${CMAKE_CURRENT_BINARY_DIR}/completion")
file(MAKE_DIRECTORY "${completion}")
foreach(shell bash zsh)
  add_custom_command(OUTPUT "${completion}/${shell}"
    COMMAND accessoryctl completion ${shell} > "${completion}/${shell}" DEPENDS accessoryctl VERBATIM)
endforeach()
add_custom_target(package_completion ALL DEPENDS "${completion}/bash" "${completion}/zsh")
install(FILES "${completion}/bash" DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
        RENAME accessoryctl COMPONENT tools)
install(FILES "${completion}/zsh" DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions"
        RENAME _accessoryctl COMPONENT tools)

configure_file(systemd/accessory-simulator@.service.in "${CMAKE_CURRENT_BINARY_DIR}/accessory-simulator@.service" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/accessory-simulator@.service" DESTINATION lib/systemd/user COMPONENT tools)
