// The second scene holds light, added up. It brightens what it falls on, and bright light is seen in the air too.
// What is bright already stays as it is: the lamps keep their colours.
#define STRENGTH 3.0
#define HAZE 0.4

float4 Effect(Fragment at) : SV_TARGET
{
    float4 scene = First(at.uv);
    float3 light = Second(at.uv).rgb;
    float dark = 1.0 - max(scene.r, max(scene.g, scene.b));
    float3 lit = scene.rgb * light * STRENGTH + light * light * HAZE;
    return saturate(float4(scene.rgb + lit * dark, scene.a));
}
