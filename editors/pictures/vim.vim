" For a picture: an example and its Torvel beside each other.

set nocompatible noswapfile viminfo= laststatus=2 number nowrap
let &runtimepath = getcwd() . '/editors/vim,' . &runtimepath
filetype plugin indent on
syntax on
source editors/pictures/colours.vim
set statusline=%t shortmess+=F cmdheight=1
silent execute 'edit' $TORVEL_PICTURE_SOURCE
call search('^FOR')
normal! zt
silent execute 'rightbelow vsplit' $TORVEL_PICTURE_RESULT
call search('^for')
normal! zt
wincmd t
