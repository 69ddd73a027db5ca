# Plays on real windows.
kestrune_room(standins/windows/screen standins-play-room)
