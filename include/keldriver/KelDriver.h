#pragma once

/// All of the library's interface at once.

#include "keldriver/Dib.h"
#include "keldriver/EllipArc.h"
#include "keldriver/Export.h"
#include "keldriver/PlotStyle.h"
#include "keldriver/QTRenderer.h"
#include "keldriver/Renderer.h"
#include "keldriver/Types.h"
#include "keldriver/Win32Types.h"
