" Programs of Brannic and Torvel by their names. Pictures have the ending .pgm too: they begin with P2 or P5.

function! s:Detect() abort
  if getline(1) !~# '^P[25]\%(\s\|$\)'
    set filetype=brannic
  endif
endfunction

autocmd BufNewFile,BufRead *.pgm,*.PGM,*.prg,*.PRG call s:Detect()
autocmd BufNewFile,BufRead *.torvel set filetype=torvel
