<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Strings</name>
    <message>
        <source>IDS_SVG_COLOR</source>
        <translation>Colour</translation>
    </message>
    <message>
        <source>IDS_LABEL_TEXT_COLOR</source>
        <translation>Label text colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICAL_CURRENT_METER_GRADE1</source>
        <translation>0 – 0.6 A</translation>
    </message>
    <message>
        <source>IDS_PHYSICAL_CURRENT_METER_GRADE2</source>
        <translation>0 – 3 A</translation>
    </message>
    <message>
        <source>IDS_PHYSICAL_METER_GRADE</source>
        <translation>Range</translation>
    </message>
    <message>
        <source>IDS_PHYSICAL_METER_VALUE</source>
        <translation>Reading</translation>
    </message>
    <message>
        <source>IDS_PHYSICAL_VOLT_METER_GRADE1</source>
        <translation>0 – 3 V</translation>
    </message>
    <message>
        <source>IDS_PHYSICAL_VOLT_METER_GRADE2</source>
        <translation>0 – 15 V</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_ANGLE</source>
        <translation>Angle</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BALL_COLOR</source>
        <translation>Ball colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BAR_COLOR</source>
        <translation>Bar colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BELT_COLOR</source>
        <translation>Belt colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BELLRING</source>
        <translation>Bell ringing</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BLOCK_COLOR</source>
        <translation>Block colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BODY_COLOR</source>
        <translation>Body colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BRACKET_HEIGHT</source>
        <translation>Bracket height</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BRACKET_NEGA45</source>
        <translation>Turned 45° anticlockwise</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BRACKET_POSI45</source>
        <translation>Turned 45° clockwise</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BRACKET_POSITIVE</source>
        <translation>Front view</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BRACKET_SIDE</source>
        <translation>Side view</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DENSITY</source>
        <translation>Density</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DIRECTION</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DIRECTIONTLEFT</source>
        <translation>Facing left</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DIRECTIONTRIGHT</source>
        <translation>Facing right</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DECK_COLOR</source>
        <translation>Deck colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DEPTH</source>
        <translation>Depth</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_GROOVE_SHAPE</source>
        <translation>Groove shape</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_HALF_CIRCLE</source>
        <translation>Half circle</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_HEIGHT</source>
        <translation>Height</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_HOOK</source>
        <translation>Hook</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_HOOKCOUNT</source>
        <translation>Hooks</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_KNOB_EXT_COLOR</source>
        <translation>Outer ring colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_KNOB_INT_COLOR</source>
        <translation>Inner disc colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LEADCOUNT</source>
        <translation>Lead wires</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LENGTH</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LEN_THICKNESS</source>
        <translation>Lens thickness</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LEFT</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_MARK_COUNT</source>
        <translation>Holes each side</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_MATERIAL</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_NONE</source>
        <translation>None</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_QUARTER_LEFT</source>
        <translation>Quarter, left</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_QUARTER_RIGHT</source>
        <translation>Quarter, right</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_RADIUS</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_READING</source>
        <translation>Reading</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SCALE_COLOR</source>
        <translation>Scale colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_RIGHT</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SAND</source>
        <translation>Sand</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_ANGLE</source>
        <translation>Show angle</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_CENTER</source>
        <translation>Show centre</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SIZE</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SLIDER_POS</source>
        <translation>Slider position</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SPONGE</source>
        <translation>Sponge</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SURFACE</source>
        <translation>Surface</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SURFACE_ROUGH</source>
        <translation>Cloth (rough)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SURFACE_SMOOTH</source>
        <translation>Glass (smooth)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SURFACE_WOOD</source>
        <translation>Wood</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_THICKNESS</source>
        <translation>Thickness</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SWITCHCONNECTDOWN</source>
        <translation>Closed downwards</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SWITCHCONNECTUP</source>
        <translation>Closed upwards</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SWITCHDISCONNECT</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SWITCHONOFF</source>
        <translation>Switch closed</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SWITCHSTATE</source>
        <translation>Switch state</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_TEXT_CONTENT</source>
        <translation>Label text</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_UNIT</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_UNIT_CM</source>
        <translation>Centimetres (cm)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_UNIT_N</source>
        <translation>Newtons (N)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_UNIT_NONE</source>
        <translation>None</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_VERNIER_10</source>
        <translation>10 divisions (0.1 mm)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_VERNIER_20</source>
        <translation>20 divisions (0.05 mm)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_VERNIER_50</source>
        <translation>50 divisions (0.02 mm)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_VERNIER_DIVISIONS</source>
        <translation>Vernier divisions</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_WIDTH</source>
        <translation>Width</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BRACKET_LOCATION</source>
        <translation>Bracket position</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BRACKET_POSITIVE</source>
        <translation>Front</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BRACKET_SIDE</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BRACKET_TURN_45_DEGREES_CLOCKWISE</source>
        <translation>Turned 45° clockwise</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BRACKET_TURN_45_DEGREES_COUNTERCLOCKWISE</source>
        <translation>Turned 45° anticlockwise</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CLOSE</source>
        <translation>Closed</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CLOSEDOWN</source>
        <translation>Closed downwards</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CLOSEUP</source>
        <translation>Closed upwards</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_COLOR</source>
        <translation>Colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DIRECTION</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DISCONNECT</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_ELECTRIC_BELL</source>
        <translation>Electric bell</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_HOOK</source>
        <translation>Hooks</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_HOOK_WITH_ONE_END</source>
        <translation>Hook at one end</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_HOOK_WITH_TWO_ENDS</source>
        <translation>Hooks at both ends</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_KNOB_COLOR</source>
        <translation>Knob colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_LEFT</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_LIGHTCOLOR</source>
        <translation>Light colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_NO_HOOK</source>
        <translation>No hooks</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_OPEN</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_RIGHT</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SCALE_LINE_COLOR</source>
        <translation>Scale line colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BALL_COLOR</source>
        <translation>Ball colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BAR_COLOR</source>
        <translation>Bar colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BELT_COLOR</source>
        <translation>Belt colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BLOCK_COLOR</source>
        <translation>Block colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BODY_COLOR</source>
        <translation>Body colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DECK_COLOR</source>
        <translation>Deck colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_GROOVE_SHAPE</source>
        <translation>Groove shape</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_HALF_CIRCLE</source>
        <translation>Half circle</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_MATERIAL</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_NONE</source>
        <translation>None</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_QUARTER_LEFT</source>
        <translation>Quarter, left</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_QUARTER_RIGHT</source>
        <translation>Quarter, right</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SAND</source>
        <translation>Sand</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_ANGLE</source>
        <translation>Show angle</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_CENTER</source>
        <translation>Show centre</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SPONGE</source>
        <translation>Sponge</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SURFACE</source>
        <translation>Surface</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SURFACE_ROUGH</source>
        <translation>Cloth (rough)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SURFACE_SMOOTH</source>
        <translation>Glass (smooth)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SURFACE_WOOD</source>
        <translation>Wood</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SWITCH_COLOR_1</source>
        <translation>Switch colour 1</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SWITCH_COLOR_2</source>
        <translation>Switch colour 2</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SWITCH_STACE</source>
        <translation>Switch state</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_Switch_is_closed</source>
        <translation>Switch is closed</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_TEXT_COLOR</source>
        <translation>Text colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_UNIT</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_UNIT_CM</source>
        <translation>Centimetres (cm)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_UNIT_N</source>
        <translation>Newtons (N)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_UNIT_NONE</source>
        <translation>None</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_VERNIER_DIVISIONS</source>
        <translation>Vernier divisions</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_0</source>
        <translation>10 divisions (0.1 mm)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_1</source>
        <translation>20 divisions (0.05 mm)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_2</source>
        <translation>50 divisions (0.02 mm)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_WIRE_COLOR</source>
        <translation>Wire colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_WRITING</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_ARROW_COLOR</source>
        <translation>Arrow colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BLADE_COLOR</source>
        <translation>Blade colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BLADE_COUNT</source>
        <translation>Blades</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_COUNT</source>
        <translation>Number</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DASHED</source>
        <translation>Dashed</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_END_STYLE</source>
        <translation>Ends</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_END_STYLE_0</source>
        <translation>Arrows and bars</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_END_STYLE_1</source>
        <translation>Arrows only</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_END_STYLE_2</source>
        <translation>Bars only</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FORCE_NAME</source>
        <translation>Name of the force</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FORCE_VALUE</source>
        <translation>Magnitude</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_HEIGHT_DIFF</source>
        <translation>Height difference</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LABEL_TEXT</source>
        <translation>Label</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LINE_COLOR</source>
        <translation>Line colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LIQUID_COLOR</source>
        <translation>Liquid colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_MASS_100G</source>
        <translation>100 g each</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_MASS_10G</source>
        <translation>10 g each</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_MASS_50G</source>
        <translation>50 g each</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_MASS_EACH</source>
        <translation>Mass of each</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_PULL_DOWN</source>
        <translation>Pulled down</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_PULL_UP</source>
        <translation>Pulled up</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_RANGE</source>
        <translation>Range</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_RANGE_0</source>
        <translation>Small range</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_RANGE_1</source>
        <translation>Middle range</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_RANGE_2</source>
        <translation>Large range</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_ROPE_END</source>
        <translation>Free end</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_ROPE_LENGTH</source>
        <translation>Rope length</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_PROBE</source>
        <translation>Show the probe</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_SEGMENTS</source>
        <translation>Count the rope segments</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_VALUE</source>
        <translation>Show the value</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_VOLUME</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_ARROW_COLOR</source>
        <translation>Arrow colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BLADE_COLOR</source>
        <translation>Blade colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_BLADE_COUNT</source>
        <translation>Blades</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_COUNT</source>
        <translation>Number</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DASHED</source>
        <translation>Dashed</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_END_STYLE</source>
        <translation>Ends</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_END_STYLE_0</source>
        <translation>Arrows and bars</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_END_STYLE_1</source>
        <translation>Arrows only</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_END_STYLE_2</source>
        <translation>Bars only</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_LINE_COLOR</source>
        <translation>Line colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_LIQUID_COLOR</source>
        <translation>Liquid colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_MASS_100G</source>
        <translation>100 g</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_MASS_10G</source>
        <translation>10 g</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_MASS_50G</source>
        <translation>50 g</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_MASS_EACH</source>
        <translation>Mass of each</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_PULL_DOWN</source>
        <translation>Pulled down</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_PULL_UP</source>
        <translation>Pulled up</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_RANGE</source>
        <translation>Range</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_RANGE_0</source>
        <translation>Small range</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_RANGE_1</source>
        <translation>Middle range</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_RANGE_2</source>
        <translation>Large range</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_ROPE_END</source>
        <translation>Free end</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_PROBE</source>
        <translation>Show the probe</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_SEGMENTS</source>
        <translation>Count the rope segments</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_VALUE</source>
        <translation>Show the value</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LIGHT_ON</source>
        <translation>Lit</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_BRIGHTNESS</source>
        <translation>Brightness</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_TERMINAL_NAMES</source>
        <translation>Show terminal names</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION</source>
        <translation>Field direction</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION_0</source>
        <translation>Into the page (×)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION_1</source>
        <translation>Out of the page (•)</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION_2</source>
        <translation>To the right</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION_3</source>
        <translation>To the left</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION_4</source>
        <translation>Upwards</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_DIRECTION_5</source>
        <translation>Downwards</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION</source>
        <translation>Field direction</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION_0</source>
        <translation>Into the page (×)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION_1</source>
        <translation>Out of the page (•)</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION_2</source>
        <translation>To the right</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION_3</source>
        <translation>To the left</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION_4</source>
        <translation>Upwards</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_DIRECTION_5</source>
        <translation>Downwards</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DENSITY</source>
        <translation>Density</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DENSITY_0</source>
        <translation>Sparse</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DENSITY_1</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_DENSITY_2</source>
        <translation>Dense</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DENSITY_0</source>
        <translation>Sparse</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DENSITY_1</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_DENSITY_2</source>
        <translation>Dense</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_FIELD_COLOR</source>
        <translation>Field colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_FIELD_COLOR</source>
        <translation>Field colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_BORDER</source>
        <translation>Show border</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_BORDER</source>
        <translation>Show border</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_GAP</source>
        <translation>Gap</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SEPARATION</source>
        <translation>Plate separation</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_CORE</source>
        <translation>Show iron core</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_CORE</source>
        <translation>Show iron core</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CURRENT_DIRECTION</source>
        <translation>Current direction</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CURRENT_DIRECTION_0</source>
        <translation>Not shown</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CURRENT_DIRECTION_1</source>
        <translation>Up the front</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CURRENT_DIRECTION_2</source>
        <translation>Down the front</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CURRENT_DIRECTION</source>
        <translation>Current direction</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CURRENT_DIRECTION_0</source>
        <translation>Not shown</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CURRENT_DIRECTION_1</source>
        <translation>Up the front</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CURRENT_DIRECTION_2</source>
        <translation>Down the front</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_POLE_DIRECTION</source>
        <translation>Poles</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_POLE_DIRECTION_0</source>
        <translation>North on the right</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_POLE_DIRECTION_1</source>
        <translation>North on the left</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_POLE_DIRECTION</source>
        <translation>Poles</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_POLE_DIRECTION_0</source>
        <translation>North on the right</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_POLE_DIRECTION_1</source>
        <translation>North on the left</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_NORTH_TOP</source>
        <translation>North on top</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_NORTH_BOTTOM</source>
        <translation>North at the bottom</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_NORTH_TOP</source>
        <translation>North on top</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_NORTH_BOTTOM</source>
        <translation>North at the bottom</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_NORTH_COLOR</source>
        <translation>North pole colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_NORTH_COLOR</source>
        <translation>North pole colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SOUTH_COLOR</source>
        <translation>South pole colour</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SOUTH_COLOR</source>
        <translation>South pole colour</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_LETTERS</source>
        <translation>Show N and S</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_LETTERS</source>
        <translation>Show N and S</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_POSITIVE_PLATE</source>
        <translation>Positive plate</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_POSITIVE_PLATE_0</source>
        <translation>Top plate</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_POSITIVE_PLATE_1</source>
        <translation>Bottom plate</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_POSITIVE_PLATE</source>
        <translation>Positive plate</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_POSITIVE_PLATE_0</source>
        <translation>Top plate</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_POSITIVE_PLATE_1</source>
        <translation>Bottom plate</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_PLATES</source>
        <translation>Show plates</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_PLATES</source>
        <translation>Show plates</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CHARGE_SIGN</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CHARGE_SIGN_0</source>
        <translation>Positive</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_CHARGE_SIGN_1</source>
        <translation>Negative</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CHARGE_SIGN</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CHARGE_SIGN_0</source>
        <translation>Positive</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_CHARGE_SIGN_1</source>
        <translation>Negative</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_FIELD_LINES</source>
        <translation>Show field lines</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_FIELD_LINES</source>
        <translation>Show field lines</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_LINE_COUNT</source>
        <translation>Number of lines</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_LINE_COUNT</source>
        <translation>Number of lines</translation>
    </message>
    <message>
        <source>IDS_SVG_PHYSICAL_SHOW_VELOCITY</source>
        <translation>Show velocity</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_SHOW_VELOCITY</source>
        <translation>Show velocity</translation>
    </message>
    <message>
        <source>BOARD_TITLE</source>
        <translation>Physics board</translation>
    </message>
    <message>
        <source>BOARD_UNTITLED</source>
        <translation>untitled</translation>
    </message>
    <message>
        <source>BOARD_MENU_FILE</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>BOARD_MENU_EDIT</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>BOARD_MENU_VIEW</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>BOARD_MENU_LANGUAGE</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>BOARD_NEW</source>
        <translation>&amp;New page</translation>
    </message>
    <message>
        <source>BOARD_OPEN</source>
        <translation>&amp;Open page…</translation>
    </message>
    <message>
        <source>BOARD_SAVE</source>
        <translation>&amp;Save page</translation>
    </message>
    <message>
        <source>BOARD_SAVE_AS</source>
        <translation>Save page &amp;as…</translation>
    </message>
    <message>
        <source>BOARD_EXPORT_PAGE</source>
        <translation>&amp;Export page…</translation>
    </message>
    <message>
        <source>BOARD_EXPORT_ITEM</source>
        <translation>Export se&amp;lection…</translation>
    </message>
    <message>
        <source>BOARD_PRINT</source>
        <translation>&amp;Print…</translation>
    </message>
    <message>
        <source>BOARD_RECENT</source>
        <translation>Recent &amp;files</translation>
    </message>
    <message>
        <source>BOARD_RECENT_CLEAR</source>
        <translation>Clear the list</translation>
    </message>
    <message>
        <source>BOARD_CUT</source>
        <translation>Cu&amp;t</translation>
    </message>
    <message>
        <source>BOARD_COPY</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>BOARD_PASTE</source>
        <translation>&amp;Paste</translation>
    </message>
    <message>
        <source>BOARD_DUPLICATE</source>
        <translation>D&amp;uplicate</translation>
    </message>
    <message>
        <source>BOARD_SELECT_ALL</source>
        <translation>Select &amp;all</translation>
    </message>
    <message>
        <source>BOARD_FRONT</source>
        <translation>Bring to &amp;front</translation>
    </message>
    <message>
        <source>BOARD_BACK</source>
        <translation>Send to &amp;back</translation>
    </message>
    <message>
        <source>BOARD_ZOOM_IN</source>
        <translation>Zoom &amp;in</translation>
    </message>
    <message>
        <source>BOARD_ZOOM_OUT</source>
        <translation>Zoom &amp;out</translation>
    </message>
    <message>
        <source>BOARD_ZOOM_FIT</source>
        <translation>&amp;Fit the page</translation>
    </message>
    <message>
        <source>BOARD_ZOOM_100</source>
        <translation>&amp;Actual size (100 %)</translation>
    </message>
    <message>
        <source>BOARD_PRESENT</source>
        <translation>&amp;Presentation</translation>
    </message>
    <message>
        <source>BOARD_PRESENT_HINT</source>
        <translation>Presentation: handles show under the pointer; Esc leaves.</translation>
    </message>
    <message>
        <source>BOARD_MENU_TOOLS</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <source>BOARD_TOOL_SELECT</source>
        <translation>&amp;Select and move</translation>
    </message>
    <message>
        <source>BOARD_TOOL_PEN</source>
        <translation>&amp;Pen</translation>
    </message>
    <message>
        <source>BOARD_TOOL_TEXT</source>
        <translation>&amp;Text</translation>
    </message>
    <message>
        <source>BOARD_TOOL_ARROW</source>
        <translation>&amp;Arrow</translation>
    </message>
    <message>
        <source>BOARD_TEXT_HINT</source>
        <translation>Type; Ctrl+Enter places the text, Esc cancels.</translation>
    </message>
    <message>
        <source>BOARD_MARK_INK</source>
        <translation>Ink</translation>
    </message>
    <message>
        <source>BOARD_MARK_TEXT</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>BOARD_MARK_ARROW</source>
        <translation>Arrow</translation>
    </message>
    <message>
        <source>BOARD_MARK_COLOR</source>
        <translation>Colour</translation>
    </message>
    <message>
        <source>BOARD_MARK_WIDTH</source>
        <translation>Line width</translation>
    </message>
    <message>
        <source>BOARD_MARK_SIZE</source>
        <translation>Text size</translation>
    </message>
    <message>
        <source>BOARD_MANY_SELECTED</source>
        <translation>%1 items selected.</translation>
    </message>
    <message>
        <source>BOARD_SAVE_BUTTON</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>BOARD_DISCARD_BUTTON</source>
        <translation>Discard</translation>
    </message>
    <message>
        <source>BOARD_PRINTED</source>
        <translation>Sent the page to the printer</translation>
    </message>
    <message>
        <source>BOARD_ERR_BAD_ITEM</source>
        <translation>%1: item %2 cannot be read; nothing was loaded.</translation>
    </message>
    <message>
        <source>BOARD_ERR_PASTE</source>
        <translation>The clipboard holds nothing the board can paste.</translation>
    </message>
    <message>
        <source>BOARD_QUIT</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>BOARD_UNDO</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>BOARD_REDO</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>BOARD_DELETE</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>BOARD_MENU_PLAYBACK</source>
        <translation>&amp;Playback</translation>
    </message>
    <message>
        <source>BOARD_RECORD</source>
        <translation>Start recording</translation>
    </message>
    <message>
        <source>BOARD_STOP_RECORD</source>
        <translation>Stop recording</translation>
    </message>
    <message>
        <source>BOARD_PLAY</source>
        <translation>Play the recording back</translation>
    </message>
    <message>
        <source>BOARD_RECORDING</source>
        <translation>Recording…</translation>
    </message>
    <message>
        <source>BOARD_PLAYING</source>
        <translation>Playing back: step %1 of %2</translation>
    </message>
    <message>
        <source>BOARD_CAPTURE</source>
        <translation>Remember this state</translation>
    </message>
    <message>
        <source>BOARD_RESTORE</source>
        <translation>Return to the remembered state</translation>
    </message>
    <message>
        <source>BOARD_RESET_TRANSFORM</source>
        <translation>Reset rotation and scale</translation>
    </message>
    <message>
        <source>BOARD_ENGLISH</source>
        <translation>English</translation>
    </message>
    <message>
        <source>BOARD_CHINESE</source>
        <translation>简体中文</translation>
    </message>
    <message>
        <source>BOARD_TOOLBOX</source>
        <translation>Apparatus</translation>
    </message>
    <message>
        <source>BOARD_PROPERTIES</source>
        <translation>Properties</translation>
    </message>
    <message>
        <source>BOARD_GROUP_MECHANICS</source>
        <translation>Mechanics</translation>
    </message>
    <message>
        <source>BOARD_GROUP_ELECTRICITY</source>
        <translation>Electricity and magnetism</translation>
    </message>
    <message>
        <source>BOARD_GROUP_OPTICS</source>
        <translation>Optics</translation>
    </message>
    <message>
        <source>BOARD_GROUP_CIRCUIT</source>
        <translation>Circuit symbols</translation>
    </message>
    <message>
        <source>BOARD_NO_SELECTION</source>
        <translation>Select an apparatus to see its properties.</translation>
    </message>
    <message>
        <source>BOARD_NO_PROPERTIES</source>
        <translation>This apparatus has no properties to set.</translation>
    </message>
    <message>
        <source>BOARD_PLACEMENT</source>
        <translation>Placement</translation>
    </message>
    <message>
        <source>BOARD_POSITION_X</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>BOARD_POSITION_Y</source>
        <translation>Top</translation>
    </message>
    <message>
        <source>BOARD_ROTATION</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>BOARD_SCALE</source>
        <translation>Scale</translation>
    </message>
    <message>
        <source>BOARD_PICK_COLOR</source>
        <translation>Pick a colour</translation>
    </message>
    <message>
        <source>BOARD_COLOR_AS_DRAWN</source>
        <translation>As drawn</translation>
    </message>
    <message>
        <source>BOARD_PAGE_FILES</source>
        <translation>Physics pages (*.phb)</translation>
    </message>
    <message>
        <source>BOARD_EXPORT_FILES</source>
        <translation>PDF document (*.pdf);;PNG picture (*.png);;SVG drawing (*.svg)</translation>
    </message>
    <message>
        <source>BOARD_EXPORTING</source>
        <translation>Exporting the page…</translation>
    </message>
    <message>
        <source>BOARD_CANCEL</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>BOARD_ERROR</source>
        <translation>Physics board</translation>
    </message>
    <message>
        <source>BOARD_ERR_OPEN</source>
        <translation>Cannot open %1: %2</translation>
    </message>
    <message>
        <source>BOARD_ERR_WRITE</source>
        <translation>Cannot write %1: %2</translation>
    </message>
    <message>
        <source>BOARD_ERR_NOT_PAGE</source>
        <translation>%1 is not a physics page file.</translation>
    </message>
    <message>
        <source>BOARD_ERR_NEWER</source>
        <translation>%1 was written by a newer version of the board (page format %2); this one reads format %3.</translation>
    </message>
    <message>
        <source>BOARD_ERR_DAMAGED</source>
        <translation>%1 is damaged or incomplete; nothing was loaded.</translation>
    </message>
    <message>
        <source>BOARD_ERR_UNKNOWN_TYPE</source>
        <translation>%1 holds an apparatus of type %2, which this build does not have; nothing was loaded.</translation>
    </message>
    <message>
        <source>BOARD_ERR_BAD_OBJECT</source>
        <translation>%1: the saved state of object %2 (type %3) cannot be read; nothing was loaded.</translation>
    </message>
    <message>
        <source>BOARD_ERR_TOO_MANY</source>
        <translation>%1 holds %2 apparatus; a page holds at most %3. Nothing was loaded.</translation>
    </message>
    <message>
        <source>BOARD_ERR_TOO_BIG</source>
        <translation>%1 is %2 MB; a page file is at most %3 MB. Nothing was loaded.</translation>
    </message>
    <message>
        <source>BOARD_PAGE_FULL</source>
        <translation>The page already holds %1 apparatus, as many as a page can; start a new page.</translation>
    </message>
    <message>
        <source>IDS_PHYSICSOBJ_TEXT_CUT</source>
        <translation>The text was cut to %1 characters.</translation>
    </message>
    <message>
        <source>BOARD_ERR_EXPORT</source>
        <translation>Cannot export to %1.</translation>
    </message>
    <message>
        <source>BOARD_ERR_NOTHING</source>
        <translation>There is nothing to export.</translation>
    </message>
    <message>
        <source>BOARD_DISCARD</source>
        <translation>The page has unsaved changes. Save them?</translation>
    </message>
    <message>
        <source>BOARD_SAVED</source>
        <translation>Saved %1</translation>
    </message>
    <message>
        <source>BOARD_OPENED</source>
        <translation>Opened %1</translation>
    </message>
    <message>
        <source>BOARD_EXPORTED</source>
        <translation>Exported %1</translation>
    </message>
    <message>
        <source>BOARD_HINT</source>
        <translation>Pick an apparatus on the left; drag its blue handles; arrow keys nudge (Shift: ten).</translation>
    </message>
    <message>
        <source>BOARD_CMD_ADD</source>
        <translation>Add %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_DELETE</source>
        <translation>Delete %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_MOVE</source>
        <translation>Move %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_ROTATE</source>
        <translation>Rotate %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_SCALE</source>
        <translation>Scale %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_HANDLE</source>
        <translation>Drag a handle of %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_EDIT</source>
        <translation>Change %1</translation>
    </message>
    <message>
        <source>BOARD_CMD_MANY</source>
        <translation>%1 %2 items</translation>
    </message>
    <message>
        <source>BOARD_CMD_PASTE</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>BOARD_CMD_DUPLICATE</source>
        <translation>Duplicate</translation>
    </message>
    <message>
        <source>BOARD_CMD_CUT</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>BOARD_CMD_FRONT</source>
        <translation>Bring to front</translation>
    </message>
    <message>
        <source>BOARD_CMD_BACK</source>
        <translation>Send to back</translation>
    </message>
    <message>
        <source>BOARD_CMD_INK</source>
        <translation>Draw ink</translation>
    </message>
    <message>
        <source>BOARD_CMD_TEXT</source>
        <translation>Add text</translation>
    </message>
    <message>
        <source>BOARD_CMD_ARROW</source>
        <translation>Draw an arrow</translation>
    </message>
    <message>
        <source>APPARATUS_100</source>
        <translation>Flat board</translation>
    </message>
    <message>
        <source>APPARATUS_101</source>
        <translation>Sloped board</translation>
    </message>
    <message>
        <source>APPARATUS_102</source>
        <translation>Triangular incline</translation>
    </message>
    <message>
        <source>APPARATUS_103</source>
        <translation>Conveyor belt</translation>
    </message>
    <message>
        <source>APPARATUS_104</source>
        <translation>Small ball</translation>
    </message>
    <message>
        <source>APPARATUS_105</source>
        <translation>Small car</translation>
    </message>
    <message>
        <source>APPARATUS_106</source>
        <translation>Wood block</translation>
    </message>
    <message>
        <source>APPARATUS_107</source>
        <translation>Stick</translation>
    </message>
    <message>
        <source>APPARATUS_108</source>
        <translation>Lever</translation>
    </message>
    <message>
        <source>APPARATUS_109</source>
        <translation>Ruler</translation>
    </message>
    <message>
        <source>APPARATUS_110</source>
        <translation>Vernier calipers</translation>
    </message>
    <message>
        <source>APPARATUS_111</source>
        <translation>Calibration scale</translation>
    </message>
    <message>
        <source>APPARATUS_112</source>
        <translation>Circular groove</translation>
    </message>
    <message>
        <source>APPARATUS_113</source>
        <translation>Indentation</translation>
    </message>
    <message>
        <source>APPARATUS_114</source>
        <translation>Skateboard</translation>
    </message>
    <message>
        <source>APPARATUS_200</source>
        <translation>Force arrow</translation>
    </message>
    <message>
        <source>APPARATUS_201</source>
        <translation>Distance marker</translation>
    </message>
    <message>
        <source>APPARATUS_202</source>
        <translation>Spring</translation>
    </message>
    <message>
        <source>APPARATUS_203</source>
        <translation>Spring balance</translation>
    </message>
    <message>
        <source>APPARATUS_204</source>
        <translation>Pulley</translation>
    </message>
    <message>
        <source>APPARATUS_205</source>
        <translation>Pulley block</translation>
    </message>
    <message>
        <source>APPARATUS_206</source>
        <translation>Double pulley block</translation>
    </message>
    <message>
        <source>APPARATUS_207</source>
        <translation>Hook weights</translation>
    </message>
    <message>
        <source>APPARATUS_300</source>
        <translation>Propeller</translation>
    </message>
    <message>
        <source>APPARATUS_301</source>
        <translation>Liquid-pressure U-tube</translation>
    </message>
    <message>
        <source>APPARATUS_302</source>
        <translation>Measuring cylinder</translation>
    </message>
    <message>
        <source>APPARATUS_400</source>
        <translation>Switch</translation>
    </message>
    <message>
        <source>APPARATUS_401</source>
        <translation>Knob</translation>
    </message>
    <message>
        <source>APPARATUS_402</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>APPARATUS_403</source>
        <translation>Ammeter</translation>
    </message>
    <message>
        <source>APPARATUS_404</source>
        <translation>Voltmeter</translation>
    </message>
    <message>
        <source>APPARATUS_405</source>
        <translation>Galvanometer</translation>
    </message>
    <message>
        <source>APPARATUS_406</source>
        <translation>Custom meter</translation>
    </message>
    <message>
        <source>APPARATUS_407</source>
        <translation>Sliding rheostat</translation>
    </message>
    <message>
        <source>APPARATUS_500</source>
        <translation>Wire</translation>
    </message>
    <message>
        <source>APPARATUS_501</source>
        <translation>Coil</translation>
    </message>
    <message>
        <source>APPARATUS_502</source>
        <translation>Coil with iron core</translation>
    </message>
    <message>
        <source>APPARATUS_503</source>
        <translation>Iron core</translation>
    </message>
    <message>
        <source>APPARATUS_504</source>
        <translation>Bar magnet</translation>
    </message>
    <message>
        <source>APPARATUS_505</source>
        <translation>U-shaped magnet</translation>
    </message>
    <message>
        <source>APPARATUS_506</source>
        <translation>Magnetic field</translation>
    </message>
    <message>
        <source>APPARATUS_507</source>
        <translation>Electric field</translation>
    </message>
    <message>
        <source>APPARATUS_508</source>
        <translation>Electric charge</translation>
    </message>
    <message>
        <source>APPARATUS_509</source>
        <translation>Electron</translation>
    </message>
    <message>
        <source>APPARATUS_510</source>
        <translation>Small magnetic needle</translation>
    </message>
    <message>
        <source>APPARATUS_600</source>
        <translation>Convex lens</translation>
    </message>
    <message>
        <source>APPARATUS_601</source>
        <translation>Half convex lens</translation>
    </message>
    <message>
        <source>APPARATUS_602</source>
        <translation>Convex lens symbol</translation>
    </message>
    <message>
        <source>APPARATUS_603</source>
        <translation>Concave lens</translation>
    </message>
    <message>
        <source>APPARATUS_604</source>
        <translation>Half concave lens</translation>
    </message>
    <message>
        <source>APPARATUS_605</source>
        <translation>Concave lens symbol</translation>
    </message>
    <message>
        <source>APPARATUS_606</source>
        <translation>Optical bracket</translation>
    </message>
    <message>
        <source>APPARATUS_607</source>
        <translation>Candle</translation>
    </message>
    <message>
        <source>APPARATUS_700</source>
        <translation>Cell</translation>
    </message>
    <message>
        <source>APPARATUS_701</source>
        <translation>Battery</translation>
    </message>
    <message>
        <source>APPARATUS_702</source>
        <translation>Two-way switch</translation>
    </message>
    <message>
        <source>APPARATUS_703</source>
        <translation>Switch symbol</translation>
    </message>
    <message>
        <source>APPARATUS_704</source>
        <translation>Lamp symbol</translation>
    </message>
    <message>
        <source>APPARATUS_705</source>
        <translation>Bell</translation>
    </message>
    <message>
        <source>APPARATUS_706</source>
        <translation>DC motor</translation>
    </message>
    <message>
        <source>APPARATUS_707</source>
        <translation>AC motor</translation>
    </message>
    <message>
        <source>APPARATUS_708</source>
        <translation>Ammeter symbol</translation>
    </message>
    <message>
        <source>APPARATUS_709</source>
        <translation>Voltmeter symbol</translation>
    </message>
    <message>
        <source>APPARATUS_710</source>
        <translation>Resistor</translation>
    </message>
    <message>
        <source>APPARATUS_711</source>
        <translation>Sliding rheostat symbol</translation>
    </message>
    <message>
        <source>APPARATUS_712</source>
        <translation>Earth</translation>
    </message>
    <message>
        <source>APPARATUS_713</source>
        <translation>Capacitor</translation>
    </message>
    <message>
        <source>APPARATUS_714</source>
        <translation>Speaker</translation>
    </message>
</context>
</TS>
