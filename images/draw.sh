#!/usr/bin/env bash
# Draws the pictures of this directory, each once for plain screens and once, as name@2x.png, for dense ones.
# Own artwork; needs ImageMagick 6 and the Liberation fonts. Run it after a change and commit what it made.
set -euo pipefail
cd "$(dirname "$0")"
font=/usr/share/fonts/truetype/liberation/LiberationSans-Bold.ttf

# picture NAME WIDTH HEIGHT DRAWING: the drawing is in plain pixels and is scaled as a whole.
picture() {
  local name=$1 width=$2 height=$3 drawing=$4 scale suffix
  for scale in 1 2; do
    suffix=$([ "$scale" = 1 ] || echo "@2x")
    convert -size "$((width * scale))x$((height * scale))" xc:none -font "$font" \
      -draw "scale $scale,$scale $drawing" -strip -define png:exclude-chunk=time "PNG32:$name$suffix.png"
  done
}

# A button's face: NAME WIDTH FILL EDGE TEXTCOLOR SHIFT LABEL; pressed ones are one pixel lower.
face() {
  local name=$1 width=$2 fill=$3 edge=$4 ink=$5 shift=$6 label=$7
  picture "$name" "$width" 26 "fill $fill stroke $edge stroke-width 1
    roundrectangle 0.5,0.5 $((width - 1)).5,25.5 4,4
    fill $ink stroke none font-size 12 gravity center text 0,$shift '$label'"
}

# drawing NAME WIDTH HEIGHT SHAPES: one in several colours, which is sharp at every scale.
drawing() {
  printf '<svg xmlns="http://www.w3.org/2000/svg" width="%s" height="%s" viewBox="0 0 %s %s">%s</svg>\n' \
    "$2" "$3" "$2" "$3" "$(tr '\n' ' ' <<<"$4" | sed 's/  */ /g; s/ $//')" >"$1.svg"
}

# paperpress SUFFIX FACE EDGE EDGEWIDTH INK PAPER SHIFT: a paper and the press that prints it. Programs write into
# the bands at the head and the foot, and a number at the right over the foot.
paperpress() {
  drawing "PaperPress$1" 108 96 "<rect x=\"1\" y=\"1\" width=\"106\" height=\"94\" rx=\"4\" fill=\"$2\"
    stroke=\"$3\" stroke-width=\"$4\"/>
    <path d=\"M2 20.5h104M2 74.5h104\" stroke=\"$3\" fill=\"none\"/>
    <g transform=\"translate(0 $7)\" stroke=\"$5\" stroke-width=\"1.5\" stroke-linejoin=\"round\">
    <path d=\"M14 66h40v-14h-40z\" fill=\"$6\"/><path d=\"M14 56.5h40M14 61.5h40\" stroke-width=\"1\"/>
    <path d=\"M30 52v-22h22v22\" fill=\"none\"/>
    <circle cx=\"41\" cy=\"33\" r=\"7\" fill=\"$2\"/><circle cx=\"41\" cy=\"47\" r=\"7\" fill=\"$2\"/>
    <path d=\"M20 40h42\" stroke=\"$6\" stroke-width=\"2.5\"/><path d=\"M20 38.5h42M20 41.5h42\" stroke-width=\"0.75\"/>
    <circle cx=\"41\" cy=\"33\" r=\"1.5\" fill=\"$5\" stroke=\"none\"/>
    <circle cx=\"41\" cy=\"47\" r=\"1.5\" fill=\"$5\" stroke=\"none\"/></g>"
}

# button NAME WIDTH LABEL: the states Up, Down, disabled and mouse over, plain and active.
button() {
  face "$1U" "$2" '#f4f4f4' '#7a7a7a' '#202020' 0 "$3"
  face "$1D" "$2" '#cdd8e4' '#3c5a78' '#202020' 1 "$3"
  face "$1X" "$2" '#efefef' '#c4c4c4' '#a8a8a8' 0 "$3"
  face "$1O" "$2" '#e4eef8' '#3c78b4' '#202020' 0 "$3"
  face "$1UA" "$2" '#ffe9b8' '#b07800' '#202020' 0 "$3"
  face "$1DA" "$2" '#f0d080' '#8a5c00' '#202020' 1 "$3"
  face "$1XA" "$2" '#f4ecd8' '#d0c4a4' '#b0a890' 0 "$3"
  face "$1OA" "$2" '#fff2d0' '#d09000' '#202020' 0 "$3"
}

# tab NAME WIDTH FILL EDGE SHAPE DETAIL: one end of a tab, 14 pixels high: its face on the dark strip, then lines.
tab() { picture "$1" "$2" 14 "fill #3f3f3f stroke none rectangle 0,0 $2,14 fill $3 $5 fill none stroke $4 $6"; }

mkdir -p English German French
paperpress U '#f7f7f7' '#7a7a7a' 1 '#4a4a4a' '#ffffff' 0
paperpress D '#cfcfcf' '#161616' 1 '#161616' '#ffffff' 1
paperpress X '#ebebeb' '#cfcfcf' 1 '#a8a8a8' '#f7f7f7' 0
paperpress O '#ffffff' '#161616' 1 '#161616' '#ffffff' 0
paperpress UA '#ffffff' '#161616' 2 '#161616' '#e0e0e0' 0
paperpress DA '#cfcfcf' '#161616' 2 '#161616' '#ffffff' 1
paperpress XA '#ebebeb' '#a8a8a8' 2 '#a8a8a8' '#f7f7f7' 0
paperpress OA '#f0f0f0' '#000000' 2 '#000000' '#ffffff' 0
button English/Measure 90 'Measure'
button German/Measure 90 'Messen'
button French/Measure 90 'Mesurer'

quiet='#9d9d9d'
chosen='#c4c4c4'
light='#cbcbcb'
dark='#5c5c5c'
# A light line goes along the top between the ends; dark lines stand between quiet tabs.
tab TabBorderLeft 3 "$quiet" "$dark" 'rectangle 0,0 3,14' "line 0.5,1 0.5,14 stroke $light line 1,0.5 3,0.5"
tab TabBorderLeft2 3 "$quiet" "$light" 'rectangle 0,0 3,14' 'line 0,0.5 3,0.5'
tab TabBorderMostLeft 3 "$quiet" "$light" 'polygon 0,14 0,2 2,0 3,0 3,14' 'line 0.5,2 2.5,0.5'
tab 'TabBorderLeft Selected' 3 "$chosen" '#ffffff' 'polygon 0,14 0,2 2,0 3,0 3,14' 'polyline 0.5,14 0.5,2 2,0.5 3,0.5'
tab TabBorderRight 3 "$quiet" "$light" 'rectangle 0,0 3,14' 'line 0,0.5 3,0.5'
tab 'TabBorderRight Selected' 3 "$chosen" "$dark" 'polygon 0,0 1,0 3,2 3,14 0,14' 'polyline 1,0.5 2.5,2 2.5,14'
end='polygon 0,0 6,0 10,2 14,12 15,14 0,14'
endline='polyline 0,0.5 6,0.5 9.7,2.3 13.7,12 14.5,14'
tab TabBorderMostRight 16 "$quiet" "$dark" "$end" "$endline"
tab 'TabBorderMostRight Selected' 16 "$chosen" "$dark" "$end" "$endline"
torn='polygon 0,0 28,0 29,3 26,7 29,11 28,14 0,14'
tornline='polyline 28,0 28.6,3 25.6,7 28.6,11 27.8,14'
tab TabBorderMostRightBroken 32 "$quiet" "$dark" "$torn" "$tornline"
tab TabBorderMostLeftBrokenSel 32 "$chosen" "$dark" "$torn" "$tornline"

# The four states of a drawn button: NAME WIDTH HEIGHT PLAIN DOWN DISABLED, the last three drawings on its face.
states() {
  local name=$1 width=$2 height=$3 plain=$4 down=$5 disabled=$6 face
  face="stroke-width 1 roundrectangle 0.5,0.5 $((width - 1)).5,$((height - 1)).5 4,4"
  picture "${name}Up" "$width" "$height" "fill #ffffff stroke #7a7a7a $face $plain"
  picture "${name}Over" "$width" "$height" "fill #e0e0e0 stroke #7a7a7a $face $plain"
  picture "${name}Down" "$width" "$height" "fill #cfcfcf stroke #161616 $face $down"
  picture "${name}Disabled" "$width" "$height" "fill #ebebeb stroke #cfcfcf $face $disabled"
}

# chevron NAME POINTS SHIFTEDPOINTS: a scroll button of 16 pixels.
chevron() {
  local stroke='fill none stroke-width 1.5 stroke-linecap round stroke-linejoin round'
  states "$1" 16 16 "$stroke stroke #161616 polyline $2" "$stroke stroke #161616 polyline $3" \
    "$stroke stroke #8c8c8c polyline $2"
}

# Faces for texts and for fields of colour, which a program draws on them.
states Button 96 32 '' '' ''
states ColorButton 48 32 'fill none stroke #7a7a7a rectangle 7.5,7.5 40.5,24.5' \
  'fill none stroke #161616 rectangle 8.5,8.5 41.5,25.5' 'fill none stroke #cfcfcf rectangle 7.5,7.5 40.5,24.5'
chevron Left '9.5,4.5 6,8 9.5,11.5' '9.5,5.5 6,9 9.5,12.5'
chevron Right '6.5,4.5 10,8 6.5,11.5' '6.5,5.5 10,9 6.5,12.5'

# A native picture button that is on or off: surround of a colour, switched.
surround() {
  picture "Surround$1" 40 40 "fill $2 stroke $3 stroke-width $4 roundrectangle 1.5,1.5 38.5,38.5 4,4
    fill $5 stroke $6 stroke-width 1.75 rectangle 11,11 29,29 fill none rectangle 16.5,16.5 23.5,23.5"
}
surround U2 '#ebebeb' '#ebebeb' 1 none '#161616'
surround U '#ffffff' '#7a7a7a' 1 '#c6c6c6' '#161616'
surround D '#cfcfcf' '#161616' 1 '#c6c6c6' '#161616'
surround F '#ffffff' '#1d5fa6' 2 '#c6c6c6' '#161616'
surround X '#ebebeb' '#ebebeb' 1 none '#8c8c8c'

# The sign of a colour that the screen can't show; what shows it paints over the box's upper corners.
picture Warnung 20 15 "fill #ffffff stroke #161616 stroke-width 1.5 stroke-linejoin round
  polygon 10,1.5 18,13.75 2,13.75
  stroke none fill #161616 roundrectangle 9.25,5 10.75,9.5 0.7,0.7 circle 10,11.5 10,10.6"

# A printing unit from the side: plate, blanket and impression cylinder, the sheet between the last two. Programs
# write into a band at the head, 17 pixels high, and in white at the foot.
drawing TrendPressSection 57 75 "<rect x=\"0.5\" y=\"0.5\" width=\"56\" height=\"74\" fill=\"#dcdcdc\" stroke=\"#2d393e\"/>
  <path d=\"M1 55h55v19h-55z\" fill=\"#2d393e\"/>
  <g stroke=\"#4a4a4a\"><circle cx=\"19\" cy=\"28\" r=\"8\" fill=\"#c6c6c6\"/><circle cx=\"35\" cy=\"34\" r=\"8\" fill=\"#b0b0b0\"/>
  <circle cx=\"38\" cy=\"51\" r=\"8\" fill=\"#9a9a9a\"/></g>
  <path d=\"M0 42.5h57\" stroke=\"#ffffff\" stroke-width=\"2\"/>
  <path d=\"M1 55h55v19h-55z\" fill=\"#2d393e\"/>"

# Ambient light: a lamp's rays over a dark ground.
picture PropertyAmbientPatch 48 48 "fill #303840 stroke none rectangle 0,0 48,48
  stroke #ffe27a stroke-width 2 stroke-linecap round
  line 24,5 24,10 line 24,38 24,43 line 5,24 10,24 line 38,24 43,24
  line 10.5,10.5 14,14 line 34,34 37.5,37.5 line 37.5,10.5 34,14 line 14,34 10.5,37.5
  stroke none fill #fff3c0 circle 24,24 24,14"

# What means a picture that isn't there.
picture UnknownBitmap 24 24 "fill #ffffff stroke #b00000 stroke-width 1 rectangle 0.5,0.5 23.5,23.5
  stroke #e0a0a0 line 1,1 23,23 line 23,1 1,23
  fill #b00000 stroke none font-size 16 gravity center text 0,0 '?'"
