#pragma once

namespace tolvex::ctl {

/// The tool's version, for example "3.0.3.2". The text is static.
const char* version();

}  // namespace tolvex::ctl
