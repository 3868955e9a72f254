// The dialog of the point-and-figure parameters.
#pragma once

#include "controls/form.h"
#include "forms/context.h"

namespace vistaplot {

class Frmpfp : public Form {
 public:
  explicit Frmpfp(const Context& context)
      : Form("frmpfp", "Point and Figure Parameters", FormStyle::kDialog, context.host) {}
};

}  // namespace vistaplot
