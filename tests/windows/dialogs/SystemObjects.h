// How many objects of the system this process holds, as Wine counts them.
#pragma once

namespace kestrune::testing {

struct SystemObjects {
  int Windows = 0;  // of the calling thread
  int Fonts = 0;
  int Drawing = 0;  // fonts, brushes, bitmaps, device contexts ...; the system keeps some for later
};

SystemObjects CountSystemObjects();

}  // namespace kestrune::testing
