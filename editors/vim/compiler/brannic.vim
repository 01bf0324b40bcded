" The converter, and its log for the list of errors: ":compiler brannic", ":make", ":cfile NAME.log". Names in a log are
" seen from the folder of the program.

if exists("current_compiler")
  finish
endif
let current_compiler = "brannic"

CompilerSet makeprg=BrannicToTorvel64\ %:S
CompilerSet errorformat=%f:%l:\ %m,In\ file\ included\ from\ %f:%l%.%#,%*\\sfrom\ %f:%l%.%#,%-G%.%#
