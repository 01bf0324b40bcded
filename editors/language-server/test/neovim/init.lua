-- What a person has in init.lua, and nothing else of theirs.
vim.opt.runtimepath:prepend(vim.env.TORVEL_VIM)
vim.opt.swapfile = false
vim.opt.signcolumn = "yes"
vim.opt.number = true
vim.opt.laststatus = 2
vim.cmd("filetype plugin on | syntax on")
require("brannic").setup({ server = vim.env.TORVEL_SERVER })
