#include "base/sampling_words.h"

#include "base/number_picture.h"

namespace tarvik {

std::string intervalText(Sampling sampling, float interval, DepthUnits units) {
    if (sampling == Sampling::time) return shortestNumber(interval) + " s";
    const std::string centimetres = shortestNumber(interval) + " cm";
    if (units == DepthUnits::metres) return centimetres;
    const double metres = static_cast<double>(interval) / 100;
    return centimetres + " (" + formatPicture(fromMetres(metres, units), "##0.000") + " ft)";
}

} // namespace tarvik
