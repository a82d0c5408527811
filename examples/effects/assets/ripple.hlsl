// Water. The second scene says how far the first is shifted: red to the right, green down, one half for not at
// all. It is multiplied by its alpha as every colour is, so where nothing is drawn nothing is shifted.
#define REACH 20.0 // pixels at most

float4 Effect(Fragment at) : SV_TARGET
{
    float4 wave = Second(at.uv);
    float2 shift = wave.rg * 2.0 - wave.aa;
    float4 scene = First(at.uv + shift * REACH / screen_size);
    // Light comes from the upper left: slopes that rise towards it shine, the others lie in the shade.
    float slope = dot(shift, float2(-0.35, -0.35));
    return saturate(scene + float4(slope, slope, slope, 0.0) * scene.a);
}
