// How far a long file operation has come: a share of a hundred and the status text that goes with it.
#pragma once

#include <functional>
#include <string_view>

namespace tarvik {

/// May be empty: nobody watches.
using Progress = std::function<void(int percent, std::string_view statusText)>;

} // namespace tarvik
