# The fields of the data records as Cap'n Proto messages. A mask tells which fields are present, as in ours.
@0xd1a64c5e0b7f3928;

using Cxx = import "/capnp/c++.capnp";
$Cxx.namespace("accessory::bench::capnproto");

struct ItemAttribute {
  mask @0 :UInt32;
  id @1 :UInt64;
  title @2 :Text;
  durationMs @3 :Int32;
  albumTitle @4 :Text;
  albumTrackNumber @5 :Int32;
  albumTrackCount @6 :Int32;
  albumDiscNumber @7 :Int32;
  albumDiscCount @8 :Int32;
  artist @9 :Text;
  genre @10 :Text;
  composer @11 :Text;
  isLikeSupported @12 :Int32;
  isBanSupported @13 :Int32;
  isLiked @14 :Int32;
  isBanned @15 :Int32;
  artworkFileTransferId @16 :Int32;
  chapterCount @17 :Int32;
}

struct MediaPlayback {
  mask @0 :UInt32;
  status @1 :Int32;
  elapsedTime @2 :Int32;
  queueIndex @3 :Int32;
  queueCount @4 :Int32;
  queueChapterIndex @5 :Int32;
  shuffleMode @6 :Int32;
  repeatMode @7 :Int32;
  appName @8 :Text;
  libraryUniqueId @9 :Text;
  radioAd @10 :Int32;
  radioStationName @11 :Text;
  radioPlaylistId @12 :UInt64;
  playbackSpeed @13 :Int32;
  setElapsedTimeAvailable @14 :Int32;
  queueListAvailable @15 :Int32;
  queueListTransferId @16 :Int32;
  appBundleId @17 :Text;
}

struct NowPlaying {
  item @0 :ItemAttribute;
  playback @1 :MediaPlayback;
}

struct RouteGuidance {
  mask @0 :UInt32;
  displayIds @1 :List(UInt16);
  guidanceState @2 :Int32;
  maneuverState @3 :Int32;
  currentRoadName @4 :Text;
  destinationName @5 :Text;
  eta @6 :UInt64;
  timeRemaining @7 :UInt64;
  distanceRemaining @8 :Int32;
  distanceRemainingText @9 :Text;
  distanceRemainingUnits @10 :Int32;
  distanceToManeuver @11 :Int32;
  distanceToManeuverText @12 :Text;
  distanceToManeuverUnits @13 :Int32;
  currentManeuvers @14 :List(UInt16);
  maneuverCount @15 :UInt16;
  visibleInApp @16 :UInt16;
  laneIndex @17 :UInt16;
  laneCount @18 :UInt16;
  lanesShownInApp @19 :UInt16;
  sourceName @20 :Text;
  sourceSupportsGuidance @21 :UInt16;
  timeZoneOffsetMinutes @22 :Int16;
}

struct MediaItem {
  mask @0 :UInt32;
  id @1 :UInt64;
  title @2 :Text;
  mediaType @3 :Int32;
  rating @4 :Int32;
  playbackDuration @5 :Int32;
  albumId @6 :UInt64;
  albumTitle @7 :Text;
  albumTrackNumber @8 :Int32;
  albumTrackCount @9 :Int32;
  albumDiscNumber @10 :Int32;
  albumDiscCount @11 :Int32;
  artistId @12 :UInt64;
  artist @13 :Text;
  albumArtistId @14 :UInt64;
  albumArtist @15 :Text;
  genreId @16 :UInt64;
  genre @17 :Text;
  composerId @18 :UInt64;
  composer @19 :Text;
  isPartOfCompilation @20 :Int32;
  isLikeSupported @21 :Int32;
  isBanSupported @22 :Int32;
  isLiked @23 :Int32;
  isBanned @24 :Int32;
  isResidentOnDevice @25 :Int32;
  artworkFileTransferId @26 :Int32;
  chapterCount @27 :Int32;
}

struct MediaLibrary {
  mask @0 :UInt32;
  id @1 :Text;
  revision @2 :Text;
  items @3 :List(MediaItem);
  reset @4 :UInt8;
  updateProgress @5 :UInt8;
  isHidingRemoteItems @6 :UInt8;
  playAllSongsCapable @7 :UInt8;
}
