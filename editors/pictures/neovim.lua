-- For a picture: a program of the plant, what the language server says of it, and its Torvel.

vim.cmd("source editors/pictures/colours.vim")
vim.opt.runtimepath:prepend(vim.fn.getcwd() .. "/editors/vim")
vim.opt.swapfile = false
vim.opt.signcolumn = "yes"
vim.cmd("filetype plugin on | syntax on")
vim.diagnostic.config({ virtual_text = { prefix = "" }, float = { border = "single" } })
require("brannic").setup({ server = vim.fn.getcwd() .. "/build/editors/language-server/server.cjs" })

vim.cmd("edit " .. vim.fn.fnameescape(vim.env.TORVEL_PICTURE_PROGRAM))
vim.wait(20000, function()
  return #vim.diagnostic.get(0) > 0
end, 50)
if vim.env.TORVEL_PICTURE_STEP == "torvel" then
  vim.fn.search("MSGBOX")
  vim.cmd("BrannicTorvel")
else
  vim.fn.search("> \\zsTORQUE")
  vim.lsp.buf.hover()
end
