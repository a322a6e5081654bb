// SPDX-License-Identifier: BSD-3-Clause
#pragma once

/// All of the library's interface at once.

#include "keldriver/ClipLine.h"
#include "keldriver/ClipRgn.h"
#include "keldriver/Dib.h"
#include "keldriver/DriverKit.h"
#include "keldriver/EllipArc.h"
#include "keldriver/Export.h"
#include "keldriver/FontName.h"
#include "keldriver/IniFile.h"
#include "keldriver/Matrix.h"
#include "keldriver/Paper.h"
#include "keldriver/PlotStyle.h"
#include "keldriver/PointerArray.h"
#include "keldriver/PrivateProfile.h"
#include "keldriver/QTRenderer.h"
#include "keldriver/RasterImage.h"
#include "keldriver/Renderer.h"
#include "keldriver/SubText.h"
#include "keldriver/Types.h"
#include "keldriver/UCS33.h"
#include "keldriver/Utility.h"
#include "keldriver/Version.h"
#include "keldriver/VornRgn.h"
#include "keldriver/Win32Types.h"
