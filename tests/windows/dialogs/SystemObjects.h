// How many objects of the system this process holds, as Wine counts them.
#pragma once

namespace kestrune::testing {

struct SystemObjects {
  int windows = 0;  // of the calling thread
  int fonts = 0;
  int drawing = 0;  // fonts, brushes, bitmaps, device contexts ...; the system keeps some for later
};

SystemObjects CountSystemObjects();

}  // namespace kestrune::testing
