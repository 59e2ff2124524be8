#pragma once

namespace korvane {

/// Keeps ALSA's library from writing its own lines about missing devices to the terminal. Does
/// nothing while the library is not loaded.
///
/// Only a function of the library can do that, and only SDL is linked with it, if anybody is: it is
/// looked up in what is loaded already. Sending the terminal's descriptor elsewhere meanwhile would
/// swallow the lines of all threads.
void SilenceAlsa();

}  // namespace korvane
