// What a screen is given to work with. Everything referred to outlives the screens.
#pragma once

#include "base/dialogs.h"
#include "base/settings.h"
#include "controls/form_host.h"
#include "forms/output.h"
#include "forms/shared_state.h"
#include "marketdata/quoteline_api.h"

namespace vistaplot {

struct Screens;

struct Context {
  QuotelineApi& quoteline;
  Settings& settings;
  Dialogs& dialogs;
  FormHost& host;
  Output& output;
  SharedState& state;
  Screens& screens;  ///< all screens; for calls from one to another, not for construction
};

}  // namespace vistaplot
