-- The packets themselves: header, request or reply, and which belongs to which.

local proto = Proto("accessory", "Accessory transaction")

local VERSION = 1
local FIXED_SIZE = 72
local OBJECT_SIZE = 16
local KINDS = {[1] = "call", [2] = "reply", [3] = "oneway"}
local DIRECTIONS = {[1] = "out", [2] = "in"}
local OBJECT_KINDS = {[1] = "binder", [2] = "descriptor"}
local PLATFORM_CALLS = {[0x5f504e47] = "ping", [0x5f4e5446] = "getInterfaceDescriptor", [0x5f444d50] = "dump"}

local function header_field(make, name, text, ...)
    local field = make("accessory." .. name, text, ...)
    field_list[#field_list + 1] = field
    return field
end

local header = {
    version = header_field(ProtoField.uint8, "version", "Version"),
    kind = header_field(ProtoField.uint8, "kind", "Kind", base.DEC, KINDS),
    direction = header_field(ProtoField.uint8, "direction", "Direction", base.DEC, DIRECTIONS),
    number = header_field(ProtoField.uint64, "number", "Transaction"),
    code = header_field(ProtoField.uint32, "code", "Code"),
    flags = header_field(ProtoField.uint32, "flags", "Flags", base.HEX),
    status = header_field(ProtoField.int32, "status", "Status"),
    data_size = header_field(ProtoField.uint32, "data_size", "Data size"),
    pid = header_field(ProtoField.int32, "pid", "Process"),
    uid = header_field(ProtoField.uint32, "uid", "User"),
    peer_pid = header_field(ProtoField.int32, "peer_pid", "Other process"),
    peer_uid = header_field(ProtoField.uint32, "peer_uid", "Other user"),
    tid = header_field(ProtoField.int32, "tid", "Thread"),
    object = header_field(ProtoField.uint64, "object", "Called object", base.HEX),
    interface = header_field(ProtoField.string, "interface", "Interface"),
    operation = header_field(ProtoField.string, "operation", "Operation"),
    exception = header_field(ProtoField.int32, "exception", "Exception"),
    data = header_field(ProtoField.bytes, "data", "Data"),
    unread = header_field(ProtoField.bytes, "unread", "Bytes that no receiver reads"),
    object_offset = header_field(ProtoField.uint32, "objects.offset", "Offset"),
    object_kind = header_field(ProtoField.uint32, "objects.kind", "Kind", base.DEC, OBJECT_KINDS),
    object_identity = header_field(ProtoField.uint64, "objects.identity", "Object", base.HEX),
    request_in = header_field(ProtoField.framenum, "request_in", "Request in", base.NONE, frametype.REQUEST),
    reply_in = header_field(ProtoField.framenum, "reply_in", "Reply in", base.NONE, frametype.RESPONSE),
}
local cut_short = ProtoExpert.new("accessory.cut_short", "The packet is shorter than it says", expert.group.MALFORMED,
                                  expert.severity.WARN)
local unknown_version = ProtoExpert.new("accessory.unknown_version", "Packets of this version are unknown here",
                                        expert.group.UNDECODED, expert.severity.WARN)
proto.experts = {cut_short, unknown_version}

for _, interface in pairs(interfaces) do
    for _, operation in pairs(interface.operations) do
        local prefix = "accessory." .. interface.name .. "." .. operation.name
        for _, node in ipairs(operation.request) do declare_node(node, prefix) end
        for _, node in ipairs(operation.reply) do declare_node(node, prefix) end
    end
end
proto.fields = field_list

-- Frames of requests and replies, by process, side and number. Forgotten when another file is opened.
local requests = {}
local replies = {}
function proto.init()
    requests = {}
    replies = {}
end

local function show_fixed(tvb, tree)
    local function add(name, offset, size) tree:add_le(header[name], tvb(offset, size)) end
    add("version", 0, 1)
    add("kind", 1, 1)
    add("direction", 2, 1)
    add("number", 8, 8)
    add("code", 16, 4)
    add("flags", 20, 4)
    if tvb(1, 1):uint() == 2 then add("status", 24, 4) end
    add("data_size", 36, 4)
    add("pid", 40, 4)
    add("uid", 44, 4)
    add("peer_pid", 48, 4)
    add("peer_uid", 52, 4)
    add("tid", 56, 4)
    add("object", 64, 8)
end

-- @return the identities of the binders by their offsets.
local function show_objects(tvb, count, tree)
    local identities = {}
    for i = 0, count - 1 do
        local at = FIXED_SIZE + i * OBJECT_SIZE
        local inner = tree:add("Object in the data")
        inner:add_le(header.object_offset, tvb(at, 4))
        inner:add_le(header.object_kind, tvb(at + 4, 4))
        inner:add_le(header.object_identity, tvb(at + 8, 8))
        local identity = tvb(at + 8, 8):le_uint64():tohex()
        identities[tvb(at, 4):le_uint()] = identity:find("[^0]") and identity or "null"
    end
    return identities
end

local function link(tvb, pinfo, tree, is_reply)
    local is_made = (tvb(2, 1):uint() == 1) ~= is_reply
    local key = tvb(40, 4):le_int() .. (is_made and ">" or "<") .. tostring(tvb(8, 8):le_uint64())
    local own, other = requests, replies
    if is_reply then own, other = replies, requests end
    if not pinfo.visited then own[key] = pinfo.number end
    if other[key] then
        tree:add(is_reply and header.request_in or header.reply_in, other[key]):set_generated()
    end
end

local function show_request(reader, operation, tree)
    reader:word()
    reader:word()
    reader:utf16()
    show_all(operation.request, reader, tree)
end

local function show_reply(reader, interface, operation, tree)
    if interface.header then
        local exception, range = reader:word()
        if not exception then return end
        tree:add(header.exception, range, exception)
        if exception ~= 0 then return end
    end
    show_all(operation.reply, reader, tree)
end

local function show_data(reader, packet, tree)
    if packet.kind == "reply" and packet.status ~= 0 then return end
    if not packet.operation then
        if reader:remaining() > 0 then tree:add(header.data, reader:take(reader:remaining())) end
    elseif packet.kind == "reply" then
        show_reply(reader, packet.interface, packet.operation, tree)
    else
        show_request(reader, packet.operation, tree)
    end
end

-- What the rest goes by; nil when the packet is too short for what it says.
local function read_header(tvb)
    local size, object_count, name_size = tvb(4, 4):le_uint(), tvb(28, 4):le_uint(), tvb(32, 4):le_uint()
    local name_at = FIXED_SIZE + object_count * OBJECT_SIZE
    if name_at + name_size > size or size > tvb:len() then return nil end
    local name_range = name_size > 0 and tvb(name_at, name_size)
    local descriptor = name_range and name_range:raw() or ""
    local interface, code = interfaces[descriptor], tvb(16, 4):le_uint()
    local operation = interface and interface.operations[code]
    return {
        size = size,
        object_count = object_count,
        kind = KINDS[tvb(1, 1):uint()] or "unknown",
        status = tvb(24, 4):le_int(),
        name_range = name_range,
        interface = interface,
        operation = operation,
        interface_name = interface and interface.name or descriptor,
        operation_name = operation and operation.name or PLATFORM_CALLS[code] or "code " .. code,
    }
end

local function show_names(tvb, packet, pinfo, tree)
    if packet.name_range then tree:add(header.interface, packet.name_range, packet.interface_name) end
    tree:add(header.operation, tvb(16, 4), packet.operation_name)
    local dot = packet.name_range and "." or ""
    local failure = packet.kind == "reply" and packet.status ~= 0 and " failed: " .. packet.status or ""
    pinfo.cols.info = packet.kind .. " " .. packet.interface_name .. dot .. packet.operation_name .. failure
end

local function show_packet(tvb, packet, pinfo, tree)
    show_names(tvb, packet, pinfo, tree)
    if packet.kind ~= "oneway" then link(tvb, pinfo, tree, packet.kind == "reply") end
    local reader = Reader.new(tvb, packet.size, show_objects(tvb, packet.object_count, tree))
    show_data(reader, packet, tree)
    if reader.cut then
        tree:add_proto_expert_info(cut_short)
    elseif reader:remaining() > 0 then
        tree:add(header.unread, reader:take(reader:remaining()))
    end
end

function proto.dissector(tvb, pinfo, root)
    pinfo.cols.protocol = "ACCESSORY"
    local tree = root:add(proto, tvb())
    if tvb:len() < FIXED_SIZE then
        tree:add_proto_expert_info(cut_short)
    elseif tvb(0, 1):uint() ~= VERSION then
        tree:add_proto_expert_info(unknown_version)
    else
        show_fixed(tvb, tree)
        local packet = read_header(tvb)
        if packet then
            show_packet(tvb, packet, pinfo, tree)
        else
            tree:add_proto_expert_info(cut_short)
        end
    end
    return tvb:len()
end

DissectorTable.get("wtap_encap"):add(wtap.USER0, proto)
