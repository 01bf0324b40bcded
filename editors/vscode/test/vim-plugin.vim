" What the file types set: written to $TORVEL_RESULT, a line each.

set nomore noswapfile viminfo= shiftwidth=2 expandtab
let &runtimepath = getcwd() . '/editors/vim,' . &runtimepath
filetype plugin indent on
let s:result = []

function! s:Note(...) abort
  call add(s:result, join(a:000, ' '))
endfunction

try
  for s:name in ['picture.pgm', 'program.pgm', 'PROGRAM.PRG', 'program.torvel']
    execute 'edit' fnameescape($TORVEL_FOLDER . '/' . s:name)
    call s:Note(s:name, &filetype, &commentstring)
    bwipeout
  endfor

  execute 'edit' fnameescape($TORVEL_FOLDER . '/flat.pgm')
  normal! gg=G
  call extend(s:result, getline(1, '$'))
  bwipeout!

  execute 'edit' fnameescape($TORVEL_FOLDER . '/include.pgm')
  execute 'lcd' fnameescape($TORVEL_FOLDER)
  call s:Note('include', matchstr(getline(1), &include))
  compiler brannic
  cgetfile messages.log
  for s:entry in filter(getqflist(), 'v:val.valid')
    call s:Note(bufname(s:entry.bufnr), s:entry.lnum, s:entry.text)
  endfor
  call writefile(s:result, $TORVEL_RESULT)
catch
  verbose echo v:throwpoint v:exception
  cquit
endtry
qall!
