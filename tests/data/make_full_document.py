#!/usr/bin/env python3
"""Regenerates full_document.json, a whole "VelmoraHUD.json" used by the tests.

The document is built with the helpers of tools/velmora_document.py, which
also holds the rules that keep the output identical to Qt's writer
(QJsonDocument::toJson(QJsonDocument::Compact)), so that a load/save round
trip can be compared byte for byte.

Layout of "Data" (Map is entry 3, Battle is entry 0):
  0  Battle HUD          - party collection and a picture gauge
  1  extra HUD           - "Statusanzeige für Böse", IsHUD true, holds the
                           components of unknown Type (14 and -1)
  2  custom component    - "体力ゲージ", IsHUD false, 240 x 64, two parameters
  3  Map HUD             - every kind 0..13, deep nesting, conditions,
                           animations, add-ons, custom properties
  4  custom object       - "⚔ Kampf", no IsHUD, no Width/Height

Run:  python3 make_full_document.py   (writes next to this script)
"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)),
                                "..", "..", "tools"))
from velmora_document import (  # noqa: E402
    actor_data, animation, component, dyn_num, dyn_text, ext_code, ext_param,
    ext_variable, gauge_data, text_data, window_data, write_document)

# Stable references between the HUD objects.
ID_EXTRA_HUD = "30516"
ID_GAUGE_COMPONENT = "14620"
ID_KAMPF = "02253"

LONG_TEXT = (
    "Dieser Text ist absichtlich sehr lang, damit Leser und Schreiber mit "
    "großen Zeichenketten umgehen müssen. "
    + "The quick brown fox jumps over the lazy dog; "
    "Franz jagt im komplett verwahrlosten Taxi quer durch Bayern; "
    "いろはにほへと ちりぬるを わかよたれそ つねならむ; "
    "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich. " * 24
    + "Ende."
)

ODD_TEXT = 'Sagt "Hallo" \\ zurück\\n bleibt wörtlich\tTab\nZweite Zeile: Ä é 日本 🙂 / Schrägstrich'


# ---------------------------------------------------------------- Map HUD

def map_hud():
    hud = []

    # 1. A window panel with children nested five levels deep.
    level5_text = component(
        0, 5, "Tiefster Text (Ebene 5)", -12, 8, "TextData",
        text_data(dyn_text("Ebene 5: Ä é 日本 🙂"), font_size=18, outline=2,
                  alignment=0, max_width=160),
        scale=(1, 1),
        conditions=[{"Type": 8, "Check": 2}],
    )
    level4_group = component(
        6, 4, "Gruppe Ebene 4", 20, -10, "GroupData", {},
        children=[level5_text],
    )
    level3_window = component(
        7, 3, "Innenfenster Ebene 3", 0, 24, "WindowData",
        window_data(180, 90, padding=8, margin=0, background_opacity=50),
        children=[level4_group],
        custom_properties={"Tiefe": "3"},
    )
    level2_group = component(
        6, 2, "Gruppe Ebene 2", -40, 10, "GroupData", {},
        children=[level3_window],
        expanded=False,
    )
    leader_name = component(
        0, 6, "Leader Name", 52, -44, "TextData",
        text_data(actor_data(1, 0), font_size=24, outline=3, alignment=0,
                  max_width=160),
        scale=(1, 1),
        conditions=[{"Type": 2, "ActorType": False, "Actor": 1, "Check": 0}],
        addons=[
            {"Type": 0, "Note": "Shows the name of the party leader."},
            {"Type": 0, "Note": "Second note\twith a tab."},
        ],
    )
    hp_gauge = component(
        4, 7, "HP Gauge", 55, -10, "GaugeData",
        gauge_data(actor_data(1, 3), actor_data(1, 8), width=170, height=12,
                   color1="#e08040", color2="#f0c040", sync="HP Text"),
        animations=[
            animation(2, "StartScaleWidth", "EndScaleWidth", 1e-07, 1,
                      duration=30, easing=2),
        ],
    )
    mp_gauge = component(
        4, 8, "MP Gauge", 55, 14, "GaugeData",
        gauge_data(actor_data(1, 4), actor_data(1, 9), width=170, height=12,
                   color1="#4080e0", color2="#40c0f0",
                   outline=ext_variable(12), outline_opacity=50.5),
    )
    mp_gauge["GaugeData"]["Shape"] = 1
    panel = component(
        7, 1, "Status Panel", 168, 76, "WindowData",
        window_data(320, 136),
        conditions=[
            {"Type": 12, "Number1": {"Type": 1, "Info": 100}, "Op": 3,
             "Number2": dyn_num(1)},
        ],
        animations=[
            animation(8, "StartOpenness", "EndOpenness", 0.1, 1,
                      duration=24, easing=3,
                      activate={"Type": 3, "Conditions": [
                          {"Type": 0, "ID": 4, "Value": True},
                          {"Type": 8, "Check": 2},
                      ]}),
        ],
        custom_properties={
            "Beschreibung": "Zeile 1\nZeile 2",
            "Speed": "4",
            "script": 'return "a\\\\b";',
        },
        children=[leader_name, hp_gauge, mp_gauge, level2_group],
    )
    hud.append(panel)

    # 2. A text showing the gold amount, with an extended font size.
    hud.append(component(
        0, 9, "Gold", 720, 28, "TextData",
        text_data({"Type": 1, "Info": 101}, font_size=ext_param("GoldSize"),
                  outline=ext_code("return 2;"), alignment=2,
                  max_width=ext_variable(7), color="#ffe080",
                  outline_opacity=ext_variable(8)),
        scale=(0.833333, 1.0098),
        conditions=[{"Type": 5, "Op": 3, "Value": 0}],
        animations=[
            animation(11, "StartBrightness", "EndBrightness", 1, 0.75,
                      loop=2, duration=90, easing=4,
                      activate={"Type": 1, "ID": 3},
                      return_easing=2, backwards=6),
        ],
        addons=[
            {"Type": 1, "FilterType": 3, "Brightness": 80},
            {"Type": 3, "ClickType": 0, "ID": 2},
        ],
    ))

    # 3. A circle shape with an outline, semi-transparent.
    hud.append(component(
        1, 10, "Kreis", 760, 560, "ShapeData",
        {"Width": 64, "Height": 64, "Shape": 1, "OutlineSize": 3,
         "Color": "#202040", "OutlineColor": "#c0c0ff",
         "OutlineOpacity": 75.25},
        opacity=0.5,
        conditions=[{"Type": 4, "State": 8}],
        animations=[
            animation(3, "StartScaleHeight", "EndScaleHeight", 1, 1.25,
                      loop=2, duration=20, easing=7,
                      activate={"Type": 0, "RunType": 3}),
            animation(4, "StartWidth", "EndWidth", 64, 96, duration=20,
                      activate={"Type": 0, "RunType": 4}, reset=True),
            animation(5, "StartHeight", "EndHeight", 64, -8, duration=999999,
                      activate={"Type": 1, "ID": 12}),
        ],
        addons=[{"Type": 2, "HoverType": 3,
                 "Code": "// Called on both hover and leave.\n"
                         "// Use \"isHovered\" to distinguish."}],
    ))

    # 4. A shape of zero width (legal, draws nothing useful).
    hud.append(component(
        1, 11, "Zero Width Bar", -20, -30, "ShapeData",
        {"Width": 0, "Height": 40, "Shape": 0, "OutlineSize": 0,
         "Color": "#ffffff", "OutlineColor": "#000000",
         "OutlineOpacity": 100, "FutureShapeKey": "kept as it is"},
    ))

    # 5. A rotated picture in code mode.
    hud.append(component(
        2, 12, "Kompass", 700, 120, "PictureData",
        {"Picture": "Compass", "Code": 'return "img/pictures/Compass_" + $gamePlayer.direction() + ".png";'},
        rotation=-45,
        opacity=0.1,
        scale=(1.5, 1.5),
        conditions=[{"Type": 9, "Code": "return $gameMap.mapId() !== 1;"}],
        animations=[
            animation(6, "StartRotation", "EndRotation", -45, 315, loop=1,
                      duration=240, activate={"Type": 2, "Code": "return $gameSwitches.value(5);"}),
        ],
        addons=[{"Type": 4, "Property": 6, "Code": "return $gamePlayer.direction() * 45;"}],
    ))

    # 6. A repeating picture scrolled by extended offsets.
    hud.append(component(
        3, 13, "Scrolling Clouds", 408, 20, "RepeatData",
        {"Picture": "Clouds", "Width": 816, "Height": 40,
         "OffsetX": ext_code("return Graphics.frameCount % 256;"),
         "OffsetY": -10},
        opacity=0.833333,
        animations=[
            animation(9, "StartOffset", "EndOffset", 0, 256, loop=1,
                      duration=600),
            animation(10, "StartOffset", "EndOffset", 0, -32, loop=2,
                      duration=300, easing=1, reset=True, return_easing=1),
        ],
        addons=[{"Type": 1, "FilterType": 1, "Tone": "#336699",
                 "Grey": ext_variable(21)}],
    ))

    # 7. A picture gauge for the leader's TP.
    hud.append(component(
        5, 14, "TP Gauge (Bild)", 168, 170, "PictureGaugeData",
        {"GaugeSkin": "GaugeSkin", "Width": 200, "Height": 24,
         "EdgeMargin": 15, "Value": actor_data(1, 5),
         "Maximum": actor_data(1, 10), "Smoothness": ext_param("Glätte"),
         "SyncComponent": ext_code("return \"TP Text\";")},
        conditions=[{"Type": 1, "ID": 2, "Op": 4, "Value": ext_variable(3)}],
        addons=[{"Type": 1, "FilterType": 2, "Blend": "#ff0000",
                 "Opacity": 40}],
    ))

    # 8. The leader's face.
    hud.append(component(
        8, 15, "Leader Face", 60, 560, "ActorFaceData",
        {"ActorID": {"Type": 0, "ID": 1}},
        scale=(0.75, 0.75),
        conditions=[{"Type": 2, "ActorType": True, "Actor": 1, "Check": 6, "ID": 4}],
        addons=[{"Type": 1, "FilterType": 0, "Hue": 120}],
    ))

    # 9. An icon driven by a math dynamic number.
    hud.append(component(
        9, 16, "Zustandssymbol", 140, 560, "IconData",
        {"IconIndex": {"Type": 8, "Op": 0,
                       "FirstNum": dyn_num(64),
                       "SecondNum": {"Type": 3, "ID": 9}},
         "IconSize": 32, "IconSet": "IconSet",
         "Code": 'return "img/system/IconSet.png";'},
        scale=(2, 2),
        conditions=[{"Type": 7, "Check": 1, "ID": 3}],
        addons=[{"Type": 5, "Behavior": 2,
                 "Code": "// Insert code here.\nthis.opacity = 255;"}],
    ))

    # 10. A custom component whose HUD has no size: 100 by 100.
    hud.append(component(
        10, 17, "Kampfanzeige", 408, 312, "CustomData",
        {"Width": 100, "Height": 100,
         "Params": {"Stärke": 12.5,
                    "Titel": "Held \"Nummer 1\"",
                    "Bonus": {"Type": 6, "ItemType": 1, "ID": 2}},
         "ID": ID_KAMPF},
        conditions=[{"Type": 6, "Key": 2, "State": 1}],
    ))

    # 11. A custom collection of the gauge component over the party.
    hud.append(component(
        11, 18, "Party Rows", 408, 400, "CustomCollectionData",
        {"Width": 240, "Height": 64,
         "Params": {"ActorIndex": True, "Label": "HP"},
         "ID": ID_GAUGE_COMPONENT,
         "ListData": {"Type": 2, "MembersType": 0, "Data": 0},
         "MaxRows": 2, "MaxColumns": 2,
         "HorizontalSpacing": 8, "VerticalSpacing": ext_param("Abstand"),
         "AlignLeft": True, "AlignUp": False},
        conditions=[{"Type": 13, "Text1": {"Type": 1, "Info": 8}, "Op": 1,
                     "Text2": dyn_text("Titelbildschirm")}],
    ))

    # 12. An attach collection over all events, data from a notetag.
    hud.append(component(
        12, 19, "Event Labels", 0, 0, "AttachCollectionData",
        {"Width": 240, "Height": 64,
         "Params": {"ActorIndex": 1, "Label": {"Type": 7, "Code": "return entity.name();", "Display": "(Name)"}},
         "ID": ID_GAUGE_COMPONENT,
         "Data": 3, "List": 1, "Position": 7,
         "Notetag": "HudLabel"},
        conditions=[{"Type": 3, "EnemyType": False, "Enemy": 2, "Check": 1, "ID": 5}],
    ))

    # 13. An attach collection in code mode.
    hud.append(component(
        12, 20, "Battler Markers", 0, 0, "AttachCollectionData",
        {"Width": 240, "Height": 64, "Params": {},
         "ID": ID_GAUGE_COMPONENT,
         "Data": 4, "List": 4, "Position": 4,
         "Code": "// Use \"entity\" to access list item.\nreturn entity.hp;"},
    ))

    # 14. An animation from the database, on show.
    hud.append(component(
        13, 21, "Level-Up Funkeln", 168, 76, "AnimationData",
        {"AnimationID": 46, "Behavior": 1,
         "FutureAnimationKey": {"nested": [1, 2.5, "drei"], "empty": {}}},
        scale=(1, 1),
        animations=[
            animation(7, "StartOpacity", "EndOpacity", 0, 1, duration=15,
                      activate={"Type": 0, "RunType": 2}),
            animation(0, "StartX", "EndX", -100, 168, duration=45, easing=5),
            animation(1, "StartY", "EndY", 700, 76, duration=45, easing=5),
            animation(12, "StartHue", "EndHue", 0, 360, loop=1,
                      duration=120, activate={"Type": 0, "RunType": 0}),
        ],
    ))

    # 15. Texts with every remaining kind of dynamic text.
    dyn_texts = [
        ("Schalter-Text", {"Type": 2, "ID": 11, "OffText": "AUS",
                           "OnText": ext_param("Ein-Text")}),
        ("Variable-Text", {"Type": 3, "ID": 14}),
        ("Gegnername", {"Type": 5, "EnemyType": False,
                        "Index": ext_variable(2), "Info": 0}),
        ("Gegner Datenbank", {"Type": 5, "EnemyType": True, "ID": 3,
                              "Info": 1}),
        ("Tränke", {"Type": 6, "ItemType": 0, "ID": 7}),
        ("Code-Text", {"Type": 7, "Code": "const a = 1;\nreturn `Wert: ${a}`;",
                       "Display": "Wert: 1"}),
        ("Listen-Text", {"Type": 9, "Op": 1, "Frequency": 90,
                         "ListData": {"Type": 6,
                                      "List1": {"Type": 0, "Start": 0, "End": 5},
                                      "List2": {"Type": 4, "Index": 1, "Data": 16}}}),
        ("Spielzeit", {"Type": 1, "Info": 201}),
        ("Sonderzeichen", dyn_text(ODD_TEXT)),
        ("Sehr langer Text", dyn_text(LONG_TEXT)),
        ("Leerer Text", dyn_text("")),
    ]
    cid = 22
    for i, (name, text) in enumerate(dyn_texts):
        hud.append(component(
            0, cid, name, 600, 200 + 28 * i, "TextData",
            text_data(text, font_size=20, outline=2, alignment=i % 3,
                      max_width=180, font="mplus-1m-regular.woff"),
            scale=(1, 1),
        ))
        cid += 1

    # 16. A group collecting numbers of every other dynamic number kind.
    num_gauges = [
        ("Math Sqrt", {"Type": 8, "Op": 9,
                       "FirstNum": {"Type": 2, "ID": 1, "OffNum": 0, "OnNum": ext_variable(5)},
                       "SecondNum": dyn_num(0)}),
        ("Listen-Summe", {"Type": 9, "Op": 0,
                          "ListData": {"Type": 1, "Start": 10, "End": 20}}),
        ("Zufällige Liste", {"Type": 9, "Op": 2, "Frequency": ext_param("Takt"),
                             "ListData": {"Type": 3, "ItemType": 2, "Data": 5, "Notetag": "Gewicht"}}),
        ("Code-Zahl", {"Type": 7, "Code": "return $gameParty.steps() % 100;", "Display": "42"}),
        ("Negativ", dyn_num(-9999999)),
        ("Gefundene Karten", dyn_num(ext_variable(30))),
    ]
    gauges = []
    for i, (name, value) in enumerate(num_gauges):
        gauges.append(component(
            4, cid, name, 0, -75 + 30 * i, "GaugeData",
            gauge_data(value, {"Type": 7, "Code": "return 100;", "Display": "100"},
                       width=150, height=10, outline=0,
                       smooth=ext_code("return 5;")),
        ))
        cid += 1
    lists_group = component(
        6, cid, "Zahlen & Listen", 300, 480, "GroupData", {},
        children=gauges,
        conditions=[
            {"Type": 10, "Param": "Zeige Zahlen"},
            {"Type": 11, "Param": "Modus", "IsString": True, "Op": 1, "Value": "aus"},
            {"Type": 11, "Param": "Stufe", "IsString": False, "Op": 5, "Value": -3},
        ],
        custom_properties={"leer": ""},
    )
    cid += 1
    hud.append(lists_group)

    # 17. Lists of every remaining type, held by an attach-free collection.
    list_values = [
        {"Type": 0, "Start": ext_variable(1), "End": 5},
        {"Type": 2, "MembersType": 2, "Data": 3, "Position": 4},
        {"Type": 2, "MembersType": 1, "Data": 4, "Notetag": "Beute"},
        {"Type": 4, "Index": ext_param("Wer"), "Data": 15, "Notetag": "Aura"},
        {"Type": 5, "Index": 2, "Data": 13},
        {"Type": 7, "Code": "return [1, 2, 3];"},
    ]
    for i, list_value in enumerate(list_values):
        hud.append(component(
            11, cid, "Collection %d" % (i + 1), 100 + 100 * i, 300,
            "CustomCollectionData",
            {"Width": 100, "Height": 100, "Params": {},
             "ID": ID_KAMPF, "ListData": list_value,
             "MaxRows": 1, "MaxColumns": 1 + i % 3,
             "HorizontalSpacing": 0, "VerticalSpacing": 0,
             "AlignLeft": i % 2 == 0, "AlignUp": True},
        ))
        cid += 1

    # 18. A picture with no image at all and an empty name.
    hud.append(component(
        2, cid, "", -40, -60, "PictureData", {"Picture": ""},
        scale=(1, 1),
        animations=[],
        custom_properties={},
        extra={"FutureComponentKey": [True, False, None, {}]},
    ))
    cid += 1

    return hud


# ---------------------------------------------------------------- other HUDs

def battle_hud():
    party = component(
        11, 1, "Party Status", 408, 560, "CustomCollectionData",
        {"Width": 240, "Height": 64,
         "Params": {"ActorIndex": True, "Label": "HP"},
         "ID": ID_GAUGE_COMPONENT,
         "ListData": {"Type": 2, "MembersType": 0, "Data": 0},
         "MaxRows": 1, "MaxColumns": 4,
         "HorizontalSpacing": 4, "VerticalSpacing": 0,
         "AlignLeft": True, "AlignUp": True},
    )
    boss = component(
        5, 2, "Boss HP", 408, 40, "PictureGaugeData",
        {"GaugeSkin": "BossGauge", "Width": 400, "Height": 24,
         "EdgeMargin": 20,
         "Value": {"Type": 5, "EnemyType": False, "Index": 1, "Info": 1},
         "Maximum": {"Type": 5, "EnemyType": False, "Index": 1, "Info": 6},
         "Smoothness": 30, "SyncComponent": ""},
        conditions=[{"Type": 3, "EnemyType": False, "Enemy": 1, "Check": 0}],
    )
    return [party, boss]


def extra_hud():
    unknown_future = {
        "Type": 14, "ID": 1, "Name": "Komponente aus der Zukunft",
        "X": 100, "Y": 100, "Rotation": 0, "Opacity": 1,
        "FutureData": {"Mode": "hologram", "Layers": [3, 2, 1]},
    }
    unknown_negative = {
        "Type": -1, "ID": 2, "Name": "Negativer Typ",
        "X": -50, "Y": 20, "Rotation": 0, "Opacity": 1,
        "FutureKey": {"a": [1, 2, 3]},
    }
    target = component(
        0, 3, "Zielname", 408, 80, "TextData",
        text_data(dyn_text(ext_param("Zielname")), font_size=28),
        scale=(1, 1),
        conditions=[{"Type": 10, "Param": "Zielname"}],
    )
    return [unknown_future, unknown_negative, target]


def gauge_component_hud():
    label = component(
        0, 1, "Label", 30, 16, "TextData",
        text_data(dyn_text(ext_param("Label")), font_size=18, outline=2,
                  max_width=50),
        scale=(1, 1),
    )
    name = component(
        0, 2, "Name", 150, 16, "TextData",
        text_data({"Type": 4, "ActorType": False,
                   "Index": ext_param("ActorIndex"), "Info": 0},
                  font_size=18, outline=2, alignment=2, max_width=170),
        scale=(1, 1),
    )
    gauge = component(
        4, 3, "体力", 120, 44, "GaugeData",
        gauge_data({"Type": 4, "ActorType": False,
                    "Index": ext_param("ActorIndex"), "Info": 3},
                   {"Type": 4, "ActorType": False,
                    "Index": ext_param("ActorIndex"), "Info": 8},
                   width=220, height=14),
        conditions=[{"Type": 11, "Param": "ActorIndex", "IsString": False,
                     "Op": 3, "Value": 1}],
    )
    return [label, name, gauge]


def kampf_hud():
    icon = component(
        9, 1, "Schwert", 30, 50, "IconData",
        {"IconIndex": dyn_num(97), "IconSize": ext_param("Stärke"),
         "IconSet": "IconSet"},
        scale=(1, 1),
    )
    title = component(
        0, 2, "Titel", 60, 80, "TextData",
        text_data(dyn_text(ext_param("Titel")), font_size=16, outline=0,
                  max_width=90, color="#ffd0d0"),
        scale=(1, 1),
    )
    return [icon, title]


def document():
    data = [
        {"HUD": battle_hud()},
        {
            "IsHUD": True,
            "ID": ID_EXTRA_HUD,
            "Name": "Statusanzeige für Böse",
            "Params": [{"Name": "Zielname", "IsString": True}],
            "HUD": extra_hud(),
        },
        {
            "IsHUD": False,
            "ID": ID_GAUGE_COMPONENT,
            "Name": "体力ゲージ",
            "Width": 240,
            "Height": 64,
            "Params": [
                {"Name": "ActorIndex", "IsString": False},
                {"Name": "Label", "IsString": True},
            ],
            "HUD": gauge_component_hud(),
        },
        {"HUD": map_hud()},
        {
            "ID": ID_KAMPF,
            "Name": "⚔ Kampf",
            "Params": [
                {"Name": "Stärke", "IsString": False},
                {"Name": "Titel", "IsString": True},
                {"Name": "Bonus", "IsString": False},
            ],
            "HUD": kampf_hud(),
        },
    ]
    return {
        "Map": 3,
        "Battle": 0,
        "Data": data,
        "EditorNote": "kept",
        "PluginVersion": 3,
    }


def main():
    out = os.path.join(os.path.dirname(os.path.abspath(__file__)),
                       "full_document.json")
    write_document(out, document())


if __name__ == "__main__":
    main()
