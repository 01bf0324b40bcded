" The colours of pictures.

set termguicolors background=light
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
highlight SignColumn guibg=#ffffff
highlight NormalFloat guifg=#1f2328 guibg=#eef2f6
highlight FloatBorder guifg=#8090a0 guibg=#eef2f6
