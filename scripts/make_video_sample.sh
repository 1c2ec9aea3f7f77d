#!/usr/bin/env bash
# Writes the demo optic cone video and its time file into data/samples: 20 seconds of a test
# pattern with the cone's depth drawn on it, and a time file of one row a second of the field
# system's clock, bound to the depths of CPT-A01.DAT (2.00 m down, 2 cm a row). The clock runs at
# twice the video's seconds, so rows 0 to 20 fall within the video and the last three past its end.
set -euo pipefail
cd "$(dirname "$0")/../data/samples"

font=$(fc-match -f '%{file}' 'Liberation Sans:bold' 2>/dev/null || true)
fontopt=""
if [ -n "$font" ]; then fontopt="fontfile=${font}:"; fi
ffmpeg -hide_banner -loglevel error -y -f lavfi -i "testsrc2=size=360x240:rate=10:duration=20" \
  -vf "drawbox=x=0:y=200:w=360:h=40:color=black@0.7:t=fill,drawtext=${fontopt}fontcolor=white:fontsize=22:x=12:y=208:text='DEPTH %{eif\:2000+40*t\:d} mm   T %{pts\:hms}'" \
  -c:v libx264 -preset veryslow -crf 32 -pix_fmt yuv420p -movflags +faststart OCPT-A01.mp4

{
  printf 'Optic Cone Time File.  Column 1 = depth (m), Column 2 = system time\r\n'
  for n in $(seq 0 23); do
    printf '%07.3f %d\r\n' "$(echo "2 + 0.02 * $n" | bc -l)" $((1190686996 + n))
  done
} > OCPT-A01.tim
