// Night. The second scene holds the light, drawn with BLEND_ALPHAADD; the first shows as far as it is lit.
#define FLICKER 2.5 // times a second

float4 Effect(Fragment at) : SV_TARGET
{
    float4 scene = First(at.uv);
    float phase = time * FLICKER - floor(time * FLICKER);
    float3 light = Second(at.uv).rgb * (0.9 + 0.4 * phase * (1.0 - phase));
    float3 moon = float3(0.08, 0.10, 0.20);
    // Bright light is seen in the air too.
    float3 haze = light * light * 0.2;
    return saturate(float4(scene.rgb * (moon + light) + haze, scene.a));
}
