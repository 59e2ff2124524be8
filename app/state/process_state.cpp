#include "app/state/process_state.h"

namespace korvane {

HWND mainWindow = nullptr;

bool menuShowing = true;
bool highScoresShowing = false;
bool showFps = false;

bool appActive = false;
bool audioReady = false;
bool nextFigureCheat = false;
std::int32_t pendingClick = -1;

bool hiResClock = false;
double secondsPerCount = 0.0;
std::uint64_t lastCount = 0;

std::uint32_t lastFrameTick = 0;

}  // namespace korvane
