// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PreviewProgram.h"

int main(int argc, char** argv) {
    return kelplot::runPreview(argc, argv);
}
