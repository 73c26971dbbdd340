// What an editor does with its record.
#pragma once

namespace ostrinka {

enum class EditMode { kNew = 1, kEdit = 2 };

}  // namespace ostrinka
