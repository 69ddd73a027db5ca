# Plays on real windows.
kestrune_room(workbench/windows/screen kestrune-workbench-play)
