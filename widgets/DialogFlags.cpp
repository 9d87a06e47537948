#include "widgets/DialogFlags.h"

// Defaults are those of the mask 17: native title bars and the opening animation.
bool dialogNativeTitleBar = true;
bool dialogDarkenLayers = false;
bool dialogDarkenAnimated = false;
bool dialogOpenAnimated = true;
