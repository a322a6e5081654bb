// SPDX-License-Identifier: GPL-2.0-or-later

// Parses a drawing and throws everything away: the least time and memory that reading it can take.

#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: parse_only FILE" << std::endl;
        return 1;
    }
    DL_CreationAdapter nobody;
    DL_Dxf parser;
    if (!parser.in(argv[1], &nobody)) {
        std::cerr << "parse_only: " << argv[1] << ": cannot open" << std::endl;
        return 2;
    }
    return 0;
}
