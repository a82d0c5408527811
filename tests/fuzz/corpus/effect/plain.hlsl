float4 Effect(Fragment f) : SV_TARGET { return First(f.uv); }
