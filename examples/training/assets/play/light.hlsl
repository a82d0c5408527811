// The second scene holds light, added up. It brightens what it falls on, and bright light is seen in the air too.
#define STRENGTH 1.6
#define HAZE 0.22

float4 Effect(Fragment at) : SV_TARGET
{
    float4 scene = First(at.uv);
    float3 light = Second(at.uv).rgb;
    return saturate(float4(scene.rgb * (1.0 + light * STRENGTH) + light * light * HAZE, scene.a));
}
