// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "HandPainter.h"
#include "keldriver/Renderer.h"

/// A way to paint a picture by hand, and the side that it is in a benchmark's name.
struct HandWay {
    const char* side;
    std::function<void(HandPainter&, int call)> draw;
};

/// A picture: what one call draws by either way. `call` counts up, for what must differ from call to call.
struct Picture {
    std::string name;
    std::string size;
    std::function<void(HT_Renderer&, int call)> ours;
    std::vector<HandWay> hands;
    std::function<void(HT_Renderer&)> prepare; ///< installs another pen than a thin solid one, for all ways; or nothing
};

/// Pictures for a page of 800 plot units either way.
std::vector<Picture> pagePictures();

/// Pictures of lines that cross a page of 3200 plot units.
std::vector<Picture> longLinePictures();
