float4 Effect(Fragment at) : SV_TARGET
{
    float4 scene = First(at.uv);
    float4 light = Second(at.uv);
    return Tinted(scene * light, at.color);
}
