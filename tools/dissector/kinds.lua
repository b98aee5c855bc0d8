-- How every type of node is declared and shown. A node is a table:
--   t     its type, n its name, of the nodes in it
--   bits, signed                 of an integer
--   size                         of bytes, or of an array's element
--   names                        of a mask's bits, or of single bytes

local fields = {}      -- ProtoFields by their filter names
local field_list = {}  -- all of them, for Proto.fields

local function declare(make, abbreviation, name, base)
    if not fields[abbreviation] then
        fields[abbreviation] = make(abbreviation, (name and name ~= "") and name or "element", base)
        field_list[#field_list + 1] = fields[abbreviation]
    end
    return fields[abbreviation]
end

local function integer_field(node, path)
    local make = ProtoField[(node.signed and "int" or "uint") .. node.bits]
    return declare(make, path, node.n)
end

local SHOWN_ELEMENTS = 4096

local declarations = {}
local kinds = {}

-- Declares the fields of a node and of all that are in it.
local function declare_node(node, prefix)
    local path = (node.n and node.n ~= "") and prefix .. "." .. node.n or prefix
    declarations[node.t](node, path)
    for _, inner in ipairs(node.of or {}) do
        declare_node(inner.node or inner, path)
    end
end

local function show(node, reader, tree)
    if not reader.cut then kinds[node.t](node, reader, tree) end
end

local function show_all(nodes, reader, tree)
    for _, node in ipairs(nodes) do show(node, reader, tree) end
end

local function nothing() end

declarations.int = function(node, path) node.field = integer_field(node, path) end
kinds.int = function(node, reader, tree)
    local range = reader:take(4)
    if range then tree:add_le(node.field, range(0, node.bits / 8)) end
end

declarations.bool = function(node, path) node.field = declare(ProtoField.bool, path, node.n) end
kinds.bool = function(node, reader, tree)
    local value, range = reader:word()
    if value then tree:add(node.field, range, value ~= 0) end
end

declarations.long = function(node, path) node.field = declare(ProtoField.uint64, path, node.n) end
kinds.long = function(node, reader, tree)
    local range = reader:take(8)
    if range then tree:add_le(node.field, range) end
end

declarations.text = function(node, path) node.field = declare(ProtoField.string, path, node.n) end
kinds.text = function(node, reader, tree)
    local range, text = reader:text()
    if range then tree:add(node.field, range, text) end
end

declarations.text8 = declarations.text
kinds.text8 = function(node, reader, tree)
    local length, range = reader:word()
    if not length then return end
    if length <= 0 then
        tree:add(node.field, range, "")
        return
    end
    local bytes = reader:take(length + 1)
    if bytes then tree:add(node.field, bytes, bytes(0, length):raw()) end
end

declarations.optional = nothing
kinds.optional = function(node, reader, tree)
    local present = reader:word()
    if present and present ~= 0 then show_all(node.of, reader, tree) end
end

declarations.binder = declarations.text
kinds.binder = function(node, reader, tree)
    local offset = reader.pos - reader.first
    local range = reader:take(24)
    if range then tree:add(node.field, range, reader.objects[offset] or "none") end
end

declarations.mask = function(node, path) node.field = declare(ProtoField.uint32, path, node.n, base.HEX) end
kinds.mask = function(node, reader, tree)
    local range = reader:take(4)
    if not range then return end
    local item = tree:add_le(node.field, range)
    for _, each in ipairs(node.names) do
        if bit.band(range:le_uint(), each.bit) ~= 0 then item:append_text(" " .. each.name) end
    end
end

declarations.bytes = function(node, path) node.field = declare(ProtoField.bytes, path, node.n) end
kinds.bytes = function(node, reader, tree)
    local range = reader:take(node.size)
    if range then tree:add(node.field, range) end
end

local function declare_count(node, path)
    node.count = declare(ProtoField.uint32, path .. ".count", node.n)
end

-- A count with a tree of its own. @return nil when it is not there.
local function show_count(node, reader, tree)
    local range = reader:take(4)
    if not range then return nil end
    return range:le_uint(), tree:add_le(node.count, range)
end

declarations.array = function(node, path)
    declare_count(node, path)
    node.field = node.bits and integer_field(node, path) or declare(ProtoField.bytes, path, node.n)
end
kinds.array = function(node, reader, tree)
    local count, inner = show_count(node, reader, tree)
    if not count or count == 0 then return end
    local range = reader:take(count * node.size)
    if not range then return end
    if not node.bits and not node.block then
        inner:add(node.field, range)
        return
    end
    for i = 0, math.min(count, SHOWN_ELEMENTS) - 1 do
        local element = range(i * node.size, node.size)
        if node.block then inner:add(node.field, element) else inner:add_le(node.field, element) end
    end
end

-- Every element takes bytes, so a count that no packet can hold ends with the packet.
declarations.list = declare_count
kinds.list = function(node, reader, tree)
    local count, inner = show_count(node, reader, tree)
    for _ = 1, count or 0 do
        if reader.cut then return end
        show_all(node.of, reader, inner)
    end
end

declarations.typed = declare_count
kinds.typed = function(node, reader, tree)
    local count, inner = show_count(node, reader, tree)
    for _ = 1, count or 0 do
        local which = reader:word()
        if not which then return end
        local entry = node.of[which + 1]
        if entry then show(entry, reader, inner) end
    end
end

declarations.applist = declare_count
kinds.applist = function(node, reader, tree)
    local count, inner = show_count(node, reader, tree)
    local present = reader:word()
    if not count or not present or present == 0 then return end
    for _ = 1, bit.band(count, 0xffff) do
        if reader.cut then return end
        show_all(node.of, reader, inner)
    end
end

declarations.available = function(node, path)
    node.field = declare(ProtoField.bool, path .. ".available", node.n)
end
kinds.available = function(node, reader, tree)
    local flag, range = reader:word()
    if not flag then return end
    local inner = tree:add(node.field, range, flag ~= 0)
    if flag ~= 0 then show_all(node.of, reader, inner) end
end

declarations.struct = nothing
kinds.struct = function(node, reader, tree)
    show_all(node.of, reader, node.n ~= "" and tree:add(node.n) or tree)
end

declarations.record = function(node, path)
    node.field = declare(ProtoField.uint32, path .. ".mask", node.n, base.HEX)
end
kinds.record = function(node, reader, tree)
    local range = reader:take(4)
    if not range then return end
    local inner = tree:add_le(node.field, range)
    for _, each in ipairs(node.of) do
        if each.bit == 0 or bit.band(range:le_uint(), each.bit) ~= 0 then show(each.node, reader, inner) end
    end
end

declarations.raw = function(node, path)
    node.bytes = {}
    for i, name in ipairs(node.names) do
        node.bytes[i] = declare(ProtoField.uint8, path .. "." .. name, name)
    end
end
kinds.raw = function(node, reader, tree)
    local range = reader:take(node.size)
    if not range then return end
    local inner = tree:add(node.n)
    for i, field in ipairs(node.bytes) do
        inner:add(field, range(i - 1, 1))
    end
end
