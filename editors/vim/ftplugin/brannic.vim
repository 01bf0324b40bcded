" Brannic. Made from the tables of the converter by editors/grammar/generate.mjs: do not edit.

if exists("b:did_ftplugin")
  finish
endif
let b:did_ftplugin = 1

setlocal comments=s1:/*,mb:*,ex:*/,:;,:',://
setlocal commentstring=;\ %s
setlocal formatoptions-=t formatoptions+=croql
let &l:include = '\c^\s*#include\s*"\zs[^"]*\ze'
let &l:define = '\c^\s*#\%(define\|macro\)'
setlocal indentexpr=brannic#indent(v:lnum)
setlocal indentkeys=!^F,o,O,=~end,=~else,=~next,=~loop,=~wend

let b:brannic_begin = '\c^\s*\%(/\d*\s*\)\?\%(\%([Nn]\d\+\|:\h\w*\|\h\w*:\)\s*\)*\%(DO\s\+WHILE\|DO\s\+WHL\|REPEAT\|WHILE\|DFS\|FOR\|RPT\|WHL\|IF\)\>\%(\%(\%(//\)\@![^;"\x27]\)*\$\@1<!\<\%(GOTO\|JUMP\)\>\)\@!'
let b:brannic_middle = '\c^\s*\%(/\d*\s*\)\?\%(\%([Nn]\d\+\|:\h\w*\|\h\w*:\)\s*\)*\%(ELSE\s\+IF\|ELSEIF\|ELSE\)\>'
let b:brannic_end = '\c^\s*\%(/\d*\s*\)\?\%(\%([Nn]\d\+\|:\h\w*\|\h\w*:\)\s*\)*\%(END\s\+REPEAT\|END\s\+WHILE\|ENDREPEAT\|ENDWHILE\|END\s\+DFS\|END\s\+RPT\|END\s\+SUB\|END\s\+WHL\|END\s\+IF\|ENDDFS\|ENDRPT\|ENDWHL\|ENDIF\|LOOP\|NEXT\|WEND\)\>'

let b:match_ignorecase = 1
let b:match_words = '\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<DFS\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<FOR\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<IF\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<REPEAT\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<RPT\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<WHILE\>\|\%(\<END\s\+\|\<ELSE\s\+\)\@<!\<WHL\>:\<ELSE\>\|\<ELSE\s\+IF\>\|\<ELSEIF\>:\<END\s\+DFS\>\|\<END\s\+IF\>\|\<END\s\+REPEAT\>\|\<END\s\+RPT\>\|\<END\s\+SUB\>\|\<END\s\+WHILE\>\|\<END\s\+WHL\>\|\<ENDDFS\>\|\<ENDIF\>\|\<ENDREPEAT\>\|\<ENDRPT\>\|\<ENDWHILE\>\|\<ENDWHL\>\|\<LOOP\>\|\<NEXT\>\|\<WEND\>'

let b:undo_ftplugin = "setlocal comments< commentstring< formatoptions< include< define< indentexpr< indentkeys<"
      \ . " | unlet! b:brannic_begin b:brannic_middle b:brannic_end b:match_ignorecase b:match_words"
