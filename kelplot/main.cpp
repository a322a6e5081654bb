// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/Kelplot.h"

int main(int argc, char** argv) {
    return kelplot::runKelplot(argc, argv);
}
