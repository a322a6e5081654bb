// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/Version.h"

int HT_GetLibraryVersion() {
    return KELDRIVER_VERSION;
}
