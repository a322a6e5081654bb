#include "keldriver/Types.h"

#include <cmath>

bool isEqual(double a, double b, double tol) {
    return tol > std::fabs(a - b);
}
