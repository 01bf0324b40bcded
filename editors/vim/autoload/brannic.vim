" Indentation of Brannic and Torvel: a block is a step deeper than what opens and closes it. The file type says what
" these words are.

function! brannic#indent(line) abort
  let l:before = prevnonblank(a:line - 1)
  if l:before == 0
    return 0
  endif
  let l:indent = indent(l:before)
  let l:text = getline(l:before)
  if l:text =~ b:brannic_begin || l:text =~ b:brannic_middle
    let l:indent += shiftwidth()
  endif
  let l:text = getline(a:line)
  if l:text =~ b:brannic_middle || l:text =~ b:brannic_end
    let l:indent -= shiftwidth()
  endif
  return l:indent
endfunction
