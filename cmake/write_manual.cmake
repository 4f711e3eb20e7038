# Has PROGRAM, a kivcvt, write its manual page and its completion for shells below SHARE.

function(write locale call file)
  get_filename_component(folder ${SHARE}/${file} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=LANGUAGE LC_ALL=${locale} ${PROGRAM} ${call}
    OUTPUT_FILE ${SHARE}/${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

write(ja_JP.UTF-8 manual man/ja/man1/kivcvt.1)
write(C "completion;bash" bash-completion/completions/kivcvt)
write(C "completion;zsh" zsh/site-functions/_kivcvt)
write(C "completion;fish" fish/vendor_completions.d/kivcvt.fish)
write(C manual man/man1/kivcvt.1)
