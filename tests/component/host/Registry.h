// The registry as far as registration is concerned, and a module's imports turned aside.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace host {

// Every key and value below Software\Classes of the root by its full name; a key by itself has no text.
std::map<std::wstring, std::wstring> ClassesSnapshot(HKEY root);

// The text of a value below Software\Classes of the root; "(none)" when there is none.
std::wstring ClassesText(HKEY root, const std::wstring& key, const wchar_t* name = nullptr);

// Lets calls of an imported function from the module go to `replacement`; answers the function itself, or
// null.
void* TurnAside(HMODULE module, const char* function, void* replacement);

}  // namespace host
