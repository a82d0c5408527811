// ͼ\
float4