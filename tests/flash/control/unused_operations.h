#pragma once

#include <ocidl.h>

#include "flash/shockwave_flash.h"

// The operations that no host of this kit calls.

#define UNUSED(name, ...)                     \
    STDMETHODIMP name(__VA_ARGS__) override { \
        return E_NOTIMPL;                     \
    }
#define UNUSED_PROPERTY(name, type) UNUSED(get_##name, type*) UNUSED(put_##name, type)

// clang-format off

struct UnusedMovie : IShockwaveFlash {
    UNUSED(GetTypeInfoCount, UINT*) UNUSED(GetTypeInfo, UINT, LCID, ITypeInfo**)
    UNUSED(GetIDsOfNames, REFIID, LPOLESTR*, UINT, LCID, DISPID*)
    UNUSED(Invoke, DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*)
    UNUSED(get_ReadyState, long*) UNUSED_PROPERTY(Playing, VARIANT_BOOL) UNUSED_PROPERTY(Quality, int)
    UNUSED_PROPERTY(ScaleMode, int) UNUSED_PROPERTY(AlignMode, int) UNUSED(get_Movie, BSTR*)
    UNUSED_PROPERTY(FrameNum, long) UNUSED(SetZoomRect, long, long, long, long) UNUSED(Zoom, int)
    UNUSED(Pan, long, long, int) UNUSED(Stop) UNUSED(PercentLoaded, long*)
    UNUSED(FrameLoaded, long, VARIANT_BOOL*) UNUSED(get_WMode, BSTR*) UNUSED_PROPERTY(SAlign, BSTR)
    UNUSED_PROPERTY(Menu, VARIANT_BOOL) UNUSED_PROPERTY(Base, BSTR) UNUSED_PROPERTY(Scale, BSTR)
    UNUSED_PROPERTY(DeviceFont, VARIANT_BOOL) UNUSED_PROPERTY(EmbedMovie, VARIANT_BOOL)
    UNUSED_PROPERTY(BGColor, BSTR) UNUSED(get_Quality2, BSTR*) UNUSED(LoadMovie, int, BSTR)
    UNUSED(TGotoFrame, BSTR, long) UNUSED(TGotoLabel, BSTR, BSTR) UNUSED(TCurrentFrame, BSTR, long*)
    UNUSED(TPlay, BSTR) UNUSED(TStopPlay, BSTR) UNUSED(TCallFrame, BSTR, int) UNUSED(TSetProperty, BSTR, int, BSTR)
    UNUSED(TGetProperty, BSTR, int, BSTR*) UNUSED(TSetPropertyNum, BSTR, int, double)
    UNUSED(TGetPropertyNum, BSTR, int, double*) UNUSED(TGetPropertyAsNumber, BSTR, int, double*)
    UNUSED_PROPERTY(SWRemote, BSTR) UNUSED_PROPERTY(FlashVars, BSTR) UNUSED_PROPERTY(AllowScriptAccess, BSTR)
    UNUSED_PROPERTY(MovieData, BSTR) UNUSED_PROPERTY(InlineData, IUnknown*)
    UNUSED_PROPERTY(SeamlessTabbing, VARIANT_BOOL) UNUSED(EnforceLocalSecurity)
    UNUSED_PROPERTY(Profile, VARIANT_BOOL) UNUSED_PROPERTY(ProfileAddress, BSTR)
    UNUSED_PROPERTY(ProfilePort, long) UNUSED(CallFunction, BSTR, BSTR*) UNUSED(SetReturnValue, BSTR)
    UNUSED(DisableLocalSecurity) UNUSED_PROPERTY(AllowNetworking, BSTR) UNUSED_PROPERTY(AllowFullScreen, BSTR)
    UNUSED_PROPERTY(AllowFullScreenInteractive, BSTR) UNUSED_PROPERTY(IsDependent, VARIANT_BOOL)
};

struct UnusedOle : IOleObject {
    UNUSED(GetClientSite, IOleClientSite**) UNUSED(SetHostNames, LPCOLESTR, LPCOLESTR)
    UNUSED(SetMoniker, DWORD, IMoniker*) UNUSED(GetMoniker, DWORD, DWORD, IMoniker**)
    UNUSED(InitFromData, IDataObject*, BOOL, DWORD) UNUSED(GetClipboardData, DWORD, IDataObject**)
    UNUSED(EnumVerbs, IEnumOLEVERB**) UNUSED(Update) UNUSED(IsUpToDate) UNUSED(GetUserClassID, CLSID*)
    UNUSED(GetUserType, DWORD, LPOLESTR*) UNUSED(SetExtent, DWORD, SIZEL*) UNUSED(GetExtent, DWORD, SIZEL*)
    UNUSED(Advise, IAdviseSink*, DWORD*) UNUSED(Unadvise, DWORD) UNUSED(EnumAdvise, IEnumSTATDATA**)
    UNUSED(GetMiscStatus, DWORD, DWORD*) UNUSED(SetColorScheme, LOGPALETTE*)
};

struct UnusedPlacement : IOleInPlaceObjectWindowless {
    UNUSED(GetWindow, HWND*) UNUSED(ContextSensitiveHelp, BOOL) UNUSED(InPlaceDeactivate) UNUSED(UIDeactivate)
    UNUSED(ReactivateAndUndo) UNUSED(GetDropTarget, IDropTarget**)
};

struct UnusedView : IViewObject {
    UNUSED(GetColorSet, DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**)
    UNUSED(Freeze, DWORD, LONG, void*, DWORD*) UNUSED(Unfreeze, DWORD)
    UNUSED(SetAdvise, DWORD, DWORD, IAdviseSink*) UNUSED(GetAdvise, DWORD*, DWORD*, IAdviseSink**)
};

// clang-format on
