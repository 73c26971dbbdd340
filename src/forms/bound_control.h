// A control as the field of a form that a table is bound to.
#pragma once

#include <memory>

#include "controls/form.h"
#include "engine/bound_field.h"

namespace ostrinka {

// For FORM_OBJECT_ADD; the control must stay until the table is disconnected from its form.
std::unique_ptr<BoundField> Bound(Control& control);

}  // namespace ostrinka
