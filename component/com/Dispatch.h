// Late binding: the IDispatch methods of every face, driven by the class's table.
#pragma once

#include "component/com/Windows.h"

namespace vestrel::component {

HRESULT STDMETHODCALLTYPE FaceGetTypeInfoCount(void* face, UINT* result);
HRESULT STDMETHODCALLTYPE FaceGetTypeInfo(void* face, UINT index, LCID locale, ITypeInfo** result);
HRESULT STDMETHODCALLTYPE FaceGetIDsOfNames(void* face, REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids);
HRESULT STDMETHODCALLTYPE FaceInvoke(void* face, DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* information,
                                     UINT* argumentError);

}  // namespace vestrel::component
