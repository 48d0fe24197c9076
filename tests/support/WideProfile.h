#pragma once

#include <lcms2.h>
#include <string>

namespace Tests {

/// A profile of a screen with gamma 1.8 and wide primaries, as a file would hold it.
inline std::string WideProfile() {
    cmsCIExyY const white{0.3457, 0.3585, 1};
    cmsCIExyYTRIPLE const primaries{{0.7, 0.3, 1}, {0.2, 0.75, 1}, {0.13, 0.05, 1}};
    cmsToneCurve* const curve = cmsBuildGamma(nullptr, 1.8);
    cmsToneCurve* curves[3] = {curve, curve, curve};
    cmsHPROFILE const profile = cmsCreateRGBProfile(&white, &primaries, curves);
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    cmsFreeToneCurve(curve);
    return bytes;
}

} // namespace Tests
