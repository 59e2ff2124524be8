#pragma once

#include <memory>

#include "platform/host/files.h"

namespace korvane {

/// The user's files and, behind them, installed ones, as if they lay in one folder: what the user's
/// folder lacks or cannot give comes from the other. Only the user's is changed, and `data` is the
/// user's alone: what an installation may have there is nobody's score.
std::unique_ptr<Files> LayFiles(std::unique_ptr<Files> users, std::unique_ptr<Files> installed);

}  // namespace korvane
