#pragma once
// Student's t distribution.

namespace kx {

/// The probability that |t| exceeds T in Student's distribution with Freedom degrees of freedom, which need
/// not be whole. By the continued fraction of the incomplete beta function (W. J. Lentz, Applied Optics 15
/// (1976) 668), good to about 12 digits, small probabilities too. NaN unless T >= 0 and Freedom > 0.
double StudentExcess(double T, double Freedom);
/// The t that is exceeded in magnitude with the probability 1 - Level: 2.228... for 0.95 and 10. For
/// 0 <= Level < 1 and Freedom > 0, else NaN; infinity where that is beyond a double.
double StudentLimit(double Level, double Freedom);

} // namespace kx
