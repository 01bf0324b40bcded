" Torvel. Made from the tables of the converter by editors/grammar/generate.mjs: do not edit.

if exists("b:did_ftplugin")
  finish
endif
let b:did_ftplugin = 1

setlocal comments=s1:/*,mb:*,ex:*/,://
setlocal commentstring=//\ %s
setlocal formatoptions-=t formatoptions+=croql
let &l:include = '\c^\s*#include\s*"\zs[^"]*\ze'
let &l:define = '\c^\s*#\%(define\|macro\)'
setlocal indentexpr=brannic#indent(v:lnum)
setlocal indentkeys=!^F,o,O,=~end,=~else,=~next,=~loop,=~wend

let b:brannic_begin = '\C^\s*\%(/\d*\s*\)\?\%(\%([Nn]\d\+\|:\h\w*\|\h\w*:\)\s*\)*\%(function\|repeat\|while\|for\|if\)\>'
let b:brannic_middle = '\C^\s*\%(/\d*\s*\)\?\%(\%([Nn]\d\+\|:\h\w*\|\h\w*:\)\s*\)*\%(elseif\|else\)\>'
let b:brannic_end = '\C^\s*\%(/\d*\s*\)\?\%(\%([Nn]\d\+\|:\h\w*\|\h\w*:\)\s*\)*\%(end\)\>'

let b:match_ignorecase = 0
let b:match_words = '\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<for\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<function\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<if\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<repeat\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<while\>:\<else\>\|\<elseif\>:\<end\>'

let b:undo_ftplugin = "setlocal comments< commentstring< formatoptions< include< define< indentexpr< indentkeys<"
      \ . " | unlet! b:brannic_begin b:brannic_middle b:brannic_end b:match_ignorecase b:match_words"
