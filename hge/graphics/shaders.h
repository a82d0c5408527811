#pragma once

namespace hge {

// Colours leave the pixel shaders multiplied by their alpha, and the alpha by a factor of the vertex:
// 1 covers what lies below, 0 adds to it. So both ways of blending share one draw call. Another factor makes
// quads that add their colour share it, too; where there are none the shorter shaders draw faster.
inline constexpr char kShaderSource[] = R"(
cbuffer Surface : register(b0)
{
    float4 to_clip;
};

struct Corner
{
    float3 place : POSITION;
    float4 color : COLOR0;
    float2 uv : TEXCOORD0;
    float4 mode : TEXCOORD1;
};

struct Fragment
{
    float4 place : SV_POSITION;
    float4 color : COLOR0;
    float3 uv : TEXCOORD0;
    float2 mode : TEXCOORD1;
};

Fragment PlaceCorner(Corner corner)
{
    Fragment fragment;
    fragment.place.xy = corner.place.xy * to_clip.xy + to_clip.zw;
    fragment.place.z = saturate(corner.place.z);
    fragment.place.w = 1.0;
    fragment.color = corner.color.zyxw;
    fragment.uv = float3(corner.uv, corner.mode.x * 255.0);
    fragment.mode = corner.mode.yz;
    return fragment;
}

Texture2DArray pages : register(t0);
SamplerState filter : register(s0);

float4 TintStraight(Fragment fragment) : SV_TARGET
{
    float4 color = pages.Sample(filter, fragment.uv) * fragment.color;
    return float4(color.rgb * color.a, color.a * fragment.mode.x);
}

float4 TintPremultiplied(Fragment fragment) : SV_TARGET
{
    float4 color = pages.Sample(filter, fragment.uv) * fragment.color;
    return float4(color.rgb * fragment.color.a, color.a * fragment.mode.x);
}

float4 TintOrAddStraight(Fragment fragment) : SV_TARGET
{
    float4 texel = pages.Sample(filter, fragment.uv);
    float4 color = fragment.color;
    float3 mixed = saturate(texel.rgb * lerp(color.rgb, float3(1.0, 1.0, 1.0), fragment.mode.y) +
                            color.rgb * fragment.mode.y);
    float alpha = texel.a * color.a;
    return float4(mixed * alpha, alpha * fragment.mode.x);
}

float4 TintOrAddPremultiplied(Fragment fragment) : SV_TARGET
{
    float4 texel = pages.Sample(filter, fragment.uv);
    float4 color = fragment.color;
    float3 mixed = saturate(texel.rgb * lerp(color.rgb, float3(1.0, 1.0, 1.0), fragment.mode.y) +
                            color.rgb * (fragment.mode.y * texel.a));
    return float4(mixed * color.a, texel.a * color.a * fragment.mode.x);
}
)";

}  // namespace hge
