#include "cli/Kelplot.h"

int main(int argc, char** argv) {
    return kelplot::runKelplot(argc, argv);
}
