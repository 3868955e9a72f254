// Fits a screen that was designed for one display size to another.
#pragma once

#include "controls/control.h"
#include "controls/form.h"

namespace vistaplot {

/// The display that all screens are designed for, 640 by 480 pixels, in twips.
inline constexpr float kDesignWidth = 9600.0F;
inline constexpr float kDesignHeight = 7200.0F;

/// Bit 1: the control has a Left; bit 2: a Top. 0 to 3.
int HasLeftTop(const Control& control);
/// Bit 1: the control has a Width; bit 2: a Height. 0 to 3.
int HasWidthHeight(const Control& control);

/// Multiplies the controls' lengths by display / design, in single precision. Nothing is touched
/// when both ratios are exactly 1; the form itself keeps its size, fonts are not scaled.
void ScaleControls(const Form& form,
                   float designWidth,
                   float designHeight,
                   const DisplaySize& display);

}  // namespace vistaplot
