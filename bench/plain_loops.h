// Indicators as one plain loop over float arrays: the reference that the program's own forms are
// timed beside. No missing prices; `p` points to chart day 1, the history lies before it; every
// function fills `days` values.
#pragma once

namespace vistaplot::bench {

void PlainEma(const float* p, int days, int length, float* ema);
void PlainAma(const float* p, int days, int length, float* ama);
void PlainParabolic(const float* p, int days, float* stop);
void PlainBollinger(
    const float* p, int days, int length, float* upper, float* middle, float* lower);
void PlainCorrelation(const float* first, const float* second, int days, int length, float* corr);
void PlainHurst(const float* p, int days, int window, int subdivisions, float* hurst);

/// Powers of periods 8 to `length` of every day, period by period; `powers` has room for
/// (length - 7) x days.
void PlainSpectrum(const float* p, int days, int length, int poles, float* powers);

}  // namespace vistaplot::bench
