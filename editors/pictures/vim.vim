" For a picture: an example and its Torvel beside each other.

set nocompatible noswapfile viminfo= laststatus=2 number nowrap termguicolors background=light
let &runtimepath = getcwd() . '/editors/vim,' . &runtimepath
filetype plugin indent on
syntax on
highlight Normal guifg=#1f2328 guibg=#ffffff
highlight Comment guifg=#5a6b5a gui=italic
highlight String guifg=#8a3324
highlight Number guifg=#b35900
highlight Identifier guifg=#1f4f7f
highlight Special guifg=#007f7f
highlight PreProc guifg=#8000ff
highlight Type guifg=#c00060 gui=NONE
highlight Statement guifg=#005faf gui=NONE
highlight Conditional guifg=#0000c8 gui=bold
highlight Keyword guifg=#2f6f6f gui=NONE
highlight Error guifg=#b00000 guibg=#ffe8e8
highlight LineNr guifg=#a0a0a0
highlight VertSplit guifg=#e0e0e0 guibg=#e0e0e0
highlight StatusLine guifg=#ffffff guibg=#405060 gui=NONE
highlight StatusLineNC guifg=#ffffff guibg=#405060 gui=NONE
set statusline=%t shortmess+=F cmdheight=1
silent execute 'edit' $TORVEL_PICTURE_SOURCE
call search('^FOR')
normal! zt
silent execute 'rightbelow vsplit' $TORVEL_PICTURE_RESULT
call search('^for')
normal! zt
wincmd t
