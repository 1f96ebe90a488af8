#!/usr/bin/env bash
# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
#
# samples/make_sample.sh [FILE]: draws and sounds the sample clip, harbour.avi beside this script, with FFmpeg alone
# (package ffmpeg). The same FFmpeg makes the same file, byte for byte. Takes half a minute.
set -euo pipefail
out=${1:-$(dirname "$0")/harbour.avi}
seconds=12
fading_from=11.5

# picture SIZE RED GREEN BLUE ALPHA [SECONDS]: a source that computes each pixel; of one picture by default.
picture() {
  echo "nullsrc=s=$1:r=25:d=${6:-0.04},format=gbrap,geq=r='clip($2,0,255)':g='clip($3,0,255)':b='clip($4,0,255)':a='$5'"
}

# Blue above, warm at the horizon, and a glow (register 2) around the sun.
glow='st(1,Y/200);st(2,exp(-hypot(X-430,Y-178)/70))'
sky=$(picture 640x200 "$glow;lerp(lerp(38,196,pow(ld(1),1.3)),255,ld(2))" \
  "$glow;lerp(lerp(54,128,pow(ld(1),1.5)),206,ld(2))" "$glow;lerp(lerp(112,122,ld(1)),120,ld(2))" 255)
sun=$(picture 72x72 255 244-Y*0.4 196-Y '255*clip(30.5-hypot(X-36,Y-36),0,1)')

# Ridges are sums of sines.
hills=$(picture 640x100 94+Y*0.3 76+Y*0.2 112+Y*0.1 \
  '255*clip(Y-58.5+12*sin(X/83)+6*sin(X/31+1)+18*sin(X/210+2.2),0,1)')
shore=$(picture 300x120 34 36 62 '255*clip(Y-66.5-pow(X/300,2)*56+5*sin(X/17)+4*sin(X/7.3+1)+6*sin(X/41),0,1)')

# A tower that widens downwards, its gallery, its lantern and a pointed roof; two red bands; lit from the right.
band='between(Y,40,60)+between(Y,80,100)'
tower=$(picture 48x120 "if($band,186,222)+(X-24)*3" "if($band,62,206)+(X-24)*3" "if($band,58,196)+(X-24)*3" \
  '255*if(lt(Y,9),clip(Y-abs(X-24)*0.9,0,1),if(lt(Y,21),lt(abs(X-24),6),clip(if(lt(Y,25),12,7+Y/18)-abs(X-24),0,1)))')
# A turn every four seconds.
lamp=$(picture 160x160 255 238 170 '255*min(1,1.5*exp(-hypot(X-80,Y-80)/16))*pow(max(0,sin(T*PI/2-0.4)),2)' $seconds)

# Seen from above the water: waves (register 1) are finer near the horizon, and the sun's path (register 2) is narrower.
waves='st(0,Y/78);st(1,sin(X*0.05/(0.3+ld(0))+T*0.8+3*sin(Y*0.9/(0.35+ld(0)))))'
waves+=';st(1,ld(1)*sin(11*sqrt(Y+1)-T*1.3+sin(X*0.04-T*0.5)))'
waves+=';st(2,exp(-pow((X-215)/(13+ld(0)*46),2)));st(3,clip(4*(ld(1)-ld(0)*0.25),0,1))'
sea=$(picture 320x78 "$waves;lerp(188,30,pow(ld(0),0.55))+9*ld(1)+ld(2)*(70+110*ld(3))" \
  "$waves;lerp(128,44,pow(ld(0),0.55))+8*ld(1)+ld(2)*(46+84*ld(3))" \
  "$waves;lerp(120,78,pow(ld(0),0.55))+7*ld(1)+ld(2)*(6+34*ld(3))" 255 $seconds)

# Main sail, jib, mast and hull, each with slanted sides; the hull begins with a light strake.
main_sail='clip((Y-8)*0.52-X+66,0,1)*gt(X,65)*lt(Y,98)'
jib='clip((Y-20)*0.5-60+X,0,1)*lt(X,60)*lt(Y,98)'
mast='between(X,61,63)*between(Y,2,106)'
hull='between(Y,106,124)*clip(X-14-(Y-106)*0.9,0,1)*clip(112-(Y-106)*0.6-X,0,1)'
boat=$(picture 128x125 'if(lt(Y,108),238-X*0.5,if(lt(Y,112),210,76))' 'if(lt(Y,108),226-X*0.6,if(lt(Y,112),196,44))' \
  'if(lt(Y,108),204-X*0.5,if(lt(Y,112),170,50))' "255*max(max($main_sail,$jib),max($mast,$hull))")

# Two wings that bend in the middle; register 0 is the distance from the body.
gull=$(picture 40x28 40 40 64 '255*(st(0,abs(X-20));
  clip(1.9-abs(Y-16+(5.5+2.5*sin(T*4.4))*if(lt(ld(0),9),ld(0)/9,1.5-ld(0)/18)),0,1)*clip(18.5-ld(0),0,1))' $seconds)

window() { echo "drawbox=x=$1:y=$2:w=4:h=5:c=0xffca70:t=fill:enable='gte(t,$3)'"; }

picture_graph="sws_flags=bicubic+accurate_rnd+bitexact;
  [0]loop=-1:1,setpts=N/25/TB,pad=640:352[sky];
  [sky][1]overlay=394:'140+1.3*t'[sky];
  [sky][2]overlay=0:104[land];
  [6]scale=640:156[sea];
  [land][sea]overlay=0:198[water];
  [7]split[boat][image];
  [image]vflip,scale=128:70,colorchannelmixer=rr=0.5:gg=0.5:bb=0.6:aa=0.35,gblur=2[image];
  [water][3]overlay=0:106[shore];
  [shore][4]overlay=52:64[shore];
  [shore][image]overlay='600-34*t':264[sailing];
  [sailing][boat]overlay='600-34*t+0.8*sin(t*1.3)':'142+1.6*sin(t*1.9)'[sailing];
  [8]split[gull][far];
  [sailing][gull]overlay='200+22*t':'66+6*sin(t)'[air];
  [far]scale=28:20[far];
  [air][far]overlay='164+20*t':'90+5*sin(t+1)'[air];
  [air]eq=gamma='1-0.022*t':eval=frame,$(window 130 198 4.7),$(window 157 206 5.4),$(window 189 210 6.1)[dusk];
  [dusk][5]overlay=-4:0,fade=d=0.5,fade=out:st=$fading_from:d=0.5,format=yuv420p[picture]"

# Swell, and a bell every four seconds.
swell='anoisesrc=c=brown:a=0.5:seed=7:r=44100'
bell="aevalsrc=s=44100:d=$seconds:exprs='st(0,mod(t+2.6,4));
  0.14*exp(-2.2*ld(0))*(sin(2*PI*523*ld(0))+0.6*sin(2*PI*1256*ld(0))+0.4*sin(2*PI*1883*ld(0)))*min(1,ld(0)*400)'"
sound_graph="
  [9]tremolo=f=0.25:d=0.6[swell];
  [swell][10]amix=duration=shortest:normalize=0,aformat=channel_layouts=stereo[even];
  [even]afade=d=0.5,afade=out:st=$fading_from:d=0.5[sound]"

inputs=()
for source in "$sky" "$sun" "$hills" "$shore" "$tower" "$lamp" "$sea" "$boat" "$gull" "$swell" "$bell"; do
  inputs+=(-f lavfi -i "$source")
done
ffmpeg -nostdin -v error -y "${inputs[@]}" -filter_complex "$picture_graph;$sound_graph" \
  -map '[picture]' -c:v mpeg4 -vtag DX50 -q:v 8 -g 125 -mbd rd -trellis 2 -threads 1 \
  -map '[sound]' -c:a libmp3lame -b:a 64k \
  -t $seconds -map_metadata -1 -fflags +bitexact -flags:v +bitexact -flags:a +bitexact "$out"
