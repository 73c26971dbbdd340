// The toolkit's keys by the codes that the models know.
#pragma once

namespace ostrinka {

// The code (controls/key_codes.h) of a key of the toolkit; 0 for one that stands for a letter or for nothing.
int KeyCodeOf(int key);

}  // namespace ostrinka
