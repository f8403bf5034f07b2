// What the entry of every host program does: an apartment of one thread around its checks.
#pragma once

#include <objbase.h>

namespace host {

// The exit status: 2 for arguments that are not the program's, otherwise what `checks` answers.
template <class Checks>
int Program(bool argumentsFit, Checks checks) {
  if (!argumentsFit) return 2;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int result = checks();
  CoUninitialize();
  return result;
}

}  // namespace host
