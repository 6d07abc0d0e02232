#pragma once

#include <QFont>

namespace tessarin {

// "Courier New" where it is installed, otherwise the system's fixed-pitch font: report tables
// line up only in a fixed pitch.
QFont FixedPitchFont();

// "Times New Roman" where it is installed, otherwise the system's serif face.
QFont SerifFont();

}  // namespace tessarin
