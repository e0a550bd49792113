// The picker's shading functions; see pickercolours.h.
#include "appearance/pickercolours.h"

#include "appearance/colourline.h"

#include <algorithm>
#include <cmath>

namespace PickerColours {

namespace {

// A component computed in single precision, rounded half to even and held to a byte.
quint32 component(float value) {
    return quint32(std::clamp(int(std::nearbyint(value)), 0, 255));
}

} // namespace

quint32 clrBlackness(quint32 clr, int Percent) {
    const float f = float(Percent) / 256.0f;
    const auto shade = [f](quint8 x) { return component(float(x) * f); };
    return packRgb(shade(RedByte(clr)), shade(GreenByte(clr)), shade(BlueByte(clr)));
}

quint32 clrWhiteness(quint32 clr, int Percent) {
    const float f = float(256 - Percent) / 256.0f;
    const auto shade = [f](quint8 x) { return component(float(255 - x) * f + float(x)); };
    return packRgb(shade(RedByte(clr)), shade(GreenByte(clr)), shade(BlueByte(clr)));
}

} // namespace PickerColours
