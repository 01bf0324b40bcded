" Writes what Vim's syntax says of every character: for each file named in $TORVEL_TEXTS a file of the same name with
" ".names" behind it, in which a line has the names of its characters, joined by commas.

set nomore noswapfile viminfo= encoding=latin1
let &runtimepath = getcwd() . '/editors/vim,' . &runtimepath
filetype plugin indent on
syntax on

function! s:Names(number) abort
  let l:names = []
  for l:column in range(1, len(getline(a:number)))
    call add(l:names, synIDattr(synID(a:number, l:column, 1), 'name'))
  endfor
  return join(l:names, ',')
endfunction

try
  for s:file in readfile($TORVEL_TEXTS)
    execute 'edit ++ff=unix' fnameescape(s:file)
    syntax sync fromstart
    call writefile([&filetype] + map(range(1, line('$')), 's:Names(v:val)'), s:file . '.names')
    bwipeout
  endfor
catch
  verbose echo v:throwpoint v:exception
  cquit
endtry
qall!
