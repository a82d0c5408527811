#pragma once

#include <map>
#include <string>

#include "graphics/geometry.h"
#include "graphics/pipeline.h"

namespace hge {

// One of the two textures that an effect combines.
struct EffectInput {
    const TextureSource* source = nullptr;
    Placement placement;
    int width = 0, height = 0;  // pixels of the texture
};

// The host's own pixel shader, and what it is told.
class Effect {
 public:
    // Replaces the effect; none is left, and the reason in the log, when the bytes do not make one. name is
    // for the log.
    bool Load(const Device& device, const char* name, const void* bytes, size_t size, Log& log);
    void Unload();
    bool loaded() const { return static_cast<bool>(code_); }

    // Lets go of what belongs to the device, and makes it anew for another; false when that one refuses.
    void Release();
    bool Restore(const Device& device);

    // Seconds of the program's clock. The effect sees those since it was loaded.
    void SetTime(float seconds) { now_ = seconds; }
    // Makes the shader, its values and textures current.
    void Bind(const Device& device, const EffectInput& first, const EffectInput& second,
              const Surface& surface) const;

 private:
    // Null when the text does not compile.
    ComPtr<ID3DBlob> Compiled(const std::string& text, const char* name, std::string* reason);

    // By text. Compiling takes many frames' time, and some systems' compilers leave memory behind each time.
    std::map<std::string, ComPtr<ID3DBlob>> compiled_;
    ComPtr<ID3DBlob> code_;
    ComPtr<ID3D11PixelShader> shader_;
    ComPtr<ID3D11Buffer> values_;
    float now_ = 0, loaded_at_ = 0;
};

}  // namespace hge
