#pragma once

#include <ole2.h>

constexpr CLSID CLSID_ShockwaveFlash = {
    0xD27CDB6E, 0xAE6D, 0x11CF, {0x96, 0xB8, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00}};
constexpr IID IID_IShockwaveFlash = {
    0xD27CDB6C, 0xAE6D, 0x11CF, {0x96, 0xB8, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00}};
constexpr IID DIID_IShockwaveFlashEvents = {
    0xD27CDB6D, 0xAE6D, 0x11CF, {0x96, 0xB8, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00}};

// COM interfaces have no virtual destructor: only Release deletes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// The movie control. The order of the operations is the control's table: do not change it.
struct IShockwaveFlash : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_ReadyState(long* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TotalFrames(long* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Playing(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Playing(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Quality(int* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Quality(int value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ScaleMode(int* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ScaleMode(int value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AlignMode(int* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AlignMode(int value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_BackgroundColor(long* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BackgroundColor(long value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Loop(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Loop(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Movie(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Movie(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_FrameNum(long* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_FrameNum(long value) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetZoomRect(long left, long top, long right, long bottom) = 0;
    virtual HRESULT STDMETHODCALLTYPE Zoom(int factor) = 0;
    virtual HRESULT STDMETHODCALLTYPE Pan(long x, long y, int mode) = 0;
    virtual HRESULT STDMETHODCALLTYPE Play() = 0;
    virtual HRESULT STDMETHODCALLTYPE Stop() = 0;
    virtual HRESULT STDMETHODCALLTYPE Back() = 0;
    virtual HRESULT STDMETHODCALLTYPE Forward() = 0;
    virtual HRESULT STDMETHODCALLTYPE Rewind() = 0;
    virtual HRESULT STDMETHODCALLTYPE StopPlay() = 0;
    virtual HRESULT STDMETHODCALLTYPE GotoFrame(long frame) = 0;
    virtual HRESULT STDMETHODCALLTYPE CurrentFrame(long* frame) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsPlaying(VARIANT_BOOL* playing) = 0;
    virtual HRESULT STDMETHODCALLTYPE PercentLoaded(long* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE FrameLoaded(long frame, VARIANT_BOOL* loaded) = 0;
    virtual HRESULT STDMETHODCALLTYPE FlashVersion(long* version) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_WMode(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_WMode(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SAlign(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SAlign(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Menu(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Menu(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Base(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Base(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Scale(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Scale(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DeviceFont(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DeviceFont(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_EmbedMovie(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EmbedMovie(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_BGColor(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BGColor(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Quality2(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Quality2(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE LoadMovie(int layer, BSTR url) = 0;
    virtual HRESULT STDMETHODCALLTYPE TGotoFrame(BSTR target, long frame) = 0;
    virtual HRESULT STDMETHODCALLTYPE TGotoLabel(BSTR target, BSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE TCurrentFrame(BSTR target, long* frame) = 0;
    virtual HRESULT STDMETHODCALLTYPE TCurrentLabel(BSTR target, BSTR* label) = 0;
    virtual HRESULT STDMETHODCALLTYPE TPlay(BSTR target) = 0;
    virtual HRESULT STDMETHODCALLTYPE TStopPlay(BSTR target) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetVariable(BSTR name, BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVariable(BSTR name, BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE TSetProperty(BSTR target, int property, BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE TGetProperty(BSTR target, int property, BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE TCallFrame(BSTR target, int frame) = 0;
    virtual HRESULT STDMETHODCALLTYPE TCallLabel(BSTR target, BSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE TSetPropertyNum(BSTR target, int property, double value) = 0;
    virtual HRESULT STDMETHODCALLTYPE TGetPropertyNum(BSTR target, int property, double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE TGetPropertyAsNumber(BSTR target, int property, double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SWRemote(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SWRemote(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_FlashVars(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_FlashVars(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AllowScriptAccess(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AllowScriptAccess(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_MovieData(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MovieData(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_InlineData(IUnknown** value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_InlineData(IUnknown* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SeamlessTabbing(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SeamlessTabbing(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnforceLocalSecurity() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Profile(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Profile(VARIANT_BOOL value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ProfileAddress(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ProfileAddress(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ProfilePort(long* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ProfilePort(long value) = 0;
    virtual HRESULT STDMETHODCALLTYPE CallFunction(BSTR request, BSTR* response) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetReturnValue(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE DisableLocalSecurity() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AllowNetworking(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AllowNetworking(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AllowFullScreen(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AllowFullScreen(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AllowFullScreenInteractive(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AllowFullScreenInteractive(BSTR value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IsDependent(VARIANT_BOOL* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_IsDependent(VARIANT_BOOL value) = 0;

 protected:
    ~IShockwaveFlash() = default;
};

#pragma GCC diagnostic pop
