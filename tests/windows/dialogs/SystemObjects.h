// How many objects of the system this process holds.
#pragma once

namespace kestrune::testing {

struct SystemObjects {
  int Windows = 0;  // of the calling thread
  int Drawing = 0;  // fonts, brushes, bitmaps, device contexts ...
};

SystemObjects CountSystemObjects();

}  // namespace kestrune::testing
