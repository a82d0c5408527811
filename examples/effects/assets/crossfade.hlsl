// From the first scene to the second: a disc grows from the middle with a glowing edge. The sprite's red says how
// far: 0 is all the first, 1 all the second.
#define SOFT 0.15  // width of the edge, in screen heights
#define REACH 0.85 // from the middle to a corner, at least

float4 Effect(Fragment at) : SV_TARGET
{
    float2 way = (at.uv - float2(0.5, 0.5)) * float2(screen_size.x / screen_size.y, 1.0);
    float radius = at.color.r * (REACH + SOFT);
    float inside = saturate((radius - length(way)) / SOFT);
    float shown = inside * inside * (3.0 - 2.0 * inside);
    float glow = shown * (1.0 - shown) * 2.0;
    float4 scene = lerp(First(at.uv), Second(at.uv), shown);
    return saturate(scene + float4(1.0, 0.6, 0.2, 0.0) * glow);
}
