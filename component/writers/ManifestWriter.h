// Writes the assembly manifest with which a host uses the library without registration.
#pragma once

#include <iosfwd>
#include <string_view>

namespace vestrel::component {

// `architecture` is "amd64" or "x86", `version` major.minor.patch. The library is a file beside the manifest.
void WriteManifest(std::ostream& out, std::string_view architecture, std::string_view version);

}  // namespace vestrel::component
