# A request that carries bytes, for the round trip of a call.
@0xd1c5a1f2b7e84c09;

using Cxx = import "/capnp/c++.capnp";
$Cxx.namespace("accessory::bench::capnproto");

interface Echo {
  take @0 (bytes :Data) -> (answer :UInt32);
}
