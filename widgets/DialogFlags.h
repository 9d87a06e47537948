#pragma once

// The dialog preferences decoded from the "editor" bit mask at start-up. The
// dialog frame reads them whenever a dialog opens, so a change made in the
// settings dialog takes effect at once.
extern bool dialogNativeTitleBar;
extern bool dialogDarkenLayers;
extern bool dialogDarkenAnimated;
extern bool dialogOpenAnimated;
