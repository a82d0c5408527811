#include "graphics/effect.h"

#include <algorithm>
#include <iterator>

#include "graphics/effect_text.h"
#include "graphics/shader_compiler.h"

namespace hge {

namespace {

constexpr size_t kMostCompiled = 32;

// The layout of EffectValues in the text before an effect's own.
struct Values {
    struct {
        float u_scale, v_scale, u_offset, v_offset;
    } place[2];
    struct {
        float left, top, right, bottom;
    } reach[2];
    struct {
        float red, green, blue, alpha;
    } alpha[2];
    struct {
        float width, height;
    } size[2], screen;
    float slice[2];
    float time;
    float unused[3];
};
static_assert(sizeof(Values) % 16 == 0 && offsetof(Values, time) == 128);

void SetInput(const EffectInput& input, int index, Values* values) {
    const Placement& placement = input.placement;
    values->place[index] = {placement.u_scale, placement.v_scale, placement.u_offset, placement.v_offset};
    // A texture that does not repeat ends at its edge, also where others lie beside it.
    constexpr float kEndless = 1e9f;
    if (input.source->wrap)
        values->reach[index] = {-kEndless, -kEndless, kEndless, kEndless};
    else
        values->reach[index] = {0, 0, 1, 1};
    float least = input.source->premultiplied ? 1 : 0;
    values->alpha[index] = {least, least, least, 1};
    values->size[index] = {static_cast<float>(input.width), static_cast<float>(input.height)};
    values->slice[index] = static_cast<float>(placement.slice);
}

}  // namespace

bool Effect::Load(const Device& device, const char* name, const void* bytes, size_t size, Log& log) {
    Unload();
    std::string text;
    std::string reason;
    if (MakeEffectText(bytes, size, &text, &reason)) code_ = Compiled(text, name, &reason);
    if (code_ && !Restore(device) && !device.lost()) {
        Unload();
        reason = "the device refuses it";
    }
    if (!code_) {
        log.Fail("cannot load effect \"%s\": %s", name, reason.c_str());
        return false;
    }
    loaded_at_ = now_;
    log.Write("effect \"%s\" loaded", name);
    return true;
}

ComPtr<ID3DBlob> Effect::Compiled(const std::string& text, const char* name, std::string* reason) {
    if (auto found = compiled_.find(text); found != compiled_.end()) return found->second;
    ComPtr<ID3DBlob> code = CompileShader(text, kEffectTextName, kEffectEntry, "ps_4_0", reason);
    if (!code) {
        *reason = EffectMessages(*reason, name);
        return {};
    }
    if (compiled_.size() >= kMostCompiled) compiled_.clear();
    return compiled_[text] = code;
}

void Effect::Unload() {
    Release();
    code_.Reset();
}

void Effect::Release() {
    shader_.Reset();
    values_.Reset();
}

bool Effect::Restore(const Device& device) {
    if (!code_) return true;
    if (!device) return false;
    D3D11_BUFFER_DESC values{};
    values.ByteWidth = sizeof(Values);
    values.BindFlags = D3D11_BIND_CONSTANT_BUFFER;
    return SUCCEEDED(device->CreatePixelShader(code_->GetBufferPointer(), code_->GetBufferSize(), nullptr,
                                               shader_.Put())) &&
           SUCCEEDED(device->CreateBuffer(&values, nullptr, values_.Put()));
}

void Effect::Bind(const Device& device, const EffectInput& first, const EffectInput& second,
                  const Surface& surface) const {
    Values values{};
    SetInput(first, 0, &values);
    SetInput(second, 1, &values);
    values.screen = {static_cast<float>(surface.width), static_cast<float>(surface.height)};
    values.time = now_ - loaded_at_;
    ID3D11DeviceContext* context = device.context();
    context->UpdateSubresource(values_.Get(), 0, nullptr, &values, 0, 0);
    ID3D11Buffer* buffer = values_.Get();
    ID3D11ShaderResourceView* views[] = {first.source->view.Get(), second.source->view.Get()};
    context->PSSetConstantBuffers(0, 1, &buffer);
    context->PSSetShader(shader_.Get(), nullptr, 0);
    context->PSSetShaderResources(0, std::size(views), views);
}

}  // namespace hge
