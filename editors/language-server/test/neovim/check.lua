-- Opens a program of the plant, looks at its findings, goes to an include, and shows the Torvel. What was seen is
-- written as JSON to the file that TORVEL_SEEN names.

local seen = {}

local function wait(what, fits)
  if not vim.wait(30000, fits, 20) then
    seen.fault = "waited in vain for " .. what
    error(seen.fault)
  end
end

local function position()
  local cursor = vim.api.nvim_win_get_cursor(0)
  return vim.fn.expand("%:t") .. ":" .. cursor[1]
end

local function check()
  vim.cmd("edit " .. vim.fn.fnameescape(vim.env.TORVEL_PROGRAM))
  seen.filetype = vim.bo.filetype
  wait("findings", function()
    return #vim.diagnostic.get(0) > 0
  end)
  seen.findings = {}
  for _, found in ipairs(vim.diagnostic.get(0)) do
    table.insert(seen.findings, {
      line = found.lnum + 1,
      message = found.message,
      source = found.source,
      severity = found.severity,
    })
  end

  local include = vim.fn.search('#include "\\zs')
  seen.from = position()
  assert(include > 0, "the program includes nothing")
  vim.lsp.buf.definition()
  local before = vim.fn.expand("%:p")
  wait("the include", function()
    return vim.fn.expand("%:p") ~= before
  end)
  seen.to = position()
  vim.cmd("edit " .. vim.fn.fnameescape(vim.env.TORVEL_PROGRAM))

  local answers = vim.lsp.buf_request_sync(0, "textDocument/hover", vim.lsp.util.make_position_params(), 10000)
  for _, answer in pairs(answers or {}) do
    seen.hover = answer.result and answer.result.contents.value
  end

  vim.cmd("BrannicTorvel")
  wait("the Torvel", function()
    return #vim.api.nvim_list_wins() == 2
  end)
  for _, window in ipairs(vim.api.nvim_list_wins()) do
    local buffer = vim.api.nvim_win_get_buf(window)
    if vim.api.nvim_buf_get_option(buffer, "filetype") == "torvel" then
      seen.torvel = vim.api.nvim_buf_get_lines(buffer, 0, -1, false)
    end
  end
end

local ok, fault = pcall(check)
if not ok then
  seen.fault = seen.fault or fault
end
vim.fn.writefile({ vim.fn.json_encode(seen) }, vim.env.TORVEL_SEEN)
vim.cmd("qall!")
