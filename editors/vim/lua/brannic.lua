-- The language server in Neovim, from 0.7 on:
--
--     require("brannic").setup({ server = "/path/to/server.cjs" })
--
-- Options: `node`, the program that runs it; `settings` with parameterFile, projectFile and referenceRows.
-- :BrannicTorvel shows the Torvel of the program beside it, :BrannicExplain the advice on the finding of the line.

local M = {}

-- One client for each folder of a project.
local clients = {}

local function folder_of(file)
  local folder = vim.fn.fnamemodify(file, ":p:h")
  local at = folder
  while true do
    if vim.fn.filereadable(at .. "/migration.toml") == 1 then
      return at
    end
    local outer = vim.fn.fnamemodify(at, ":h")
    if outer == at then
      return folder
    end
    at = outer
  end
end

local function attach(options, buffer)
  local folder = folder_of(vim.api.nvim_buf_get_name(buffer))
  local client = clients[folder]
  if client == nil or vim.lsp.get_client_by_id(client) == nil then
    client = vim.lsp.start_client({
      name = "brannic",
      cmd = { options.node or "node", options.server, "--stdio" },
      root_dir = folder,
      init_options = options.settings or vim.empty_dict(),
    })
    clients[folder] = client
  end
  if client ~= nil then
    vim.lsp.buf_attach_client(buffer, client)
  end
end

local function command(buffer, name, argument, handle)
  local params = { command = name, arguments = { argument } }
  vim.lsp.buf_request(buffer, "workspace/executeCommand", params, function(fault, answer)
    if fault then
      vim.notify(fault.message, vim.log.levels.ERROR)
    elseif answer ~= nil and answer ~= vim.NIL then
      handle(answer)
    end
  end)
end

-- A window beside with a text that is no file.
local function show(name, filetype, lines)
  local buffer = vim.fn.bufnr("^" .. vim.fn.escape(name, "[]*?\\") .. "$")
  if buffer == -1 then
    buffer = vim.api.nvim_create_buf(false, true)
    vim.api.nvim_buf_set_name(buffer, name)
  end
  vim.api.nvim_buf_set_option(buffer, "modifiable", true)
  vim.api.nvim_buf_set_lines(buffer, 0, -1, false, lines)
  vim.api.nvim_buf_set_option(buffer, "modifiable", false)
  local window = vim.fn.bufwinid(buffer)
  if window == -1 then
    vim.cmd("rightbelow vertical sbuffer " .. buffer)
    window = vim.api.nvim_get_current_win()
    vim.cmd("wincmd p")
  end
  vim.api.nvim_buf_set_option(buffer, "filetype", filetype)
  return window
end

-- The line of the Torvel that a line of the source became, or the one before it.
local function torvel_line(lines, source)
  local best = 1
  for number, line in ipairs(lines) do
    if line >= 0 and line <= source then
      best = number
    end
  end
  return best
end

function M.torvel()
  local buffer = vim.api.nvim_get_current_buf()
  local source = vim.api.nvim_win_get_cursor(0)[1] - 1
  command(buffer, "brannic.torvel", vim.uri_from_bufnr(buffer), function(answer)
    local lines = vim.split(answer.text, "\n")
    local name = vim.fn.fnamemodify(vim.api.nvim_buf_get_name(buffer), ":t:r") .. ".torvel (shown)"
    local window = show(name, "torvel", lines)
    local line = math.min(torvel_line(answer.lines, source), #lines)
    vim.api.nvim_win_set_cursor(window, { line, 0 })
  end)
end

function M.explain()
  local line = vim.api.nvim_win_get_cursor(0)[1] - 1
  local found = vim.diagnostic.get(0, { lnum = line })[1]
  local code = found and (found.code or (found.user_data and found.user_data.lsp.code))
  if code == nil then
    vim.notify("There is no finding in this line.")
    return
  end
  command(0, "brannic.explain", code, function(text)
    vim.lsp.util.open_floating_preview(vim.split(text, "\n"), "markdown", { border = "single" })
  end)
end

function M.setup(options)
  vim.api.nvim_create_autocmd("FileType", {
    pattern = "brannic",
    callback = function(event)
      -- Neovim 0.7 does not tell the buffer in every event.
      attach(options, event.buf or vim.api.nvim_get_current_buf())
    end,
  })
  vim.api.nvim_create_user_command("BrannicTorvel", M.torvel, {})
  vim.api.nvim_create_user_command("BrannicExplain", M.explain, {})
end

return M
