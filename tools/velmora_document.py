"""Building blocks of a "VelmoraHUD.json" document, shared by the scripts that
write documents by program: tests/data/make_full_document.py (one hand-made
document) and tools/gen-project (synthetic projects of any size).

A document is built as plain Python data and written in the compact,
key-sorted form that Qt's QJsonDocument::toJson(QJsonDocument::Compact)
produces, so that Velmora's load/save round trip gives the same bytes:

    json.dumps(doc, sort_keys=True, separators=(',', ':'), ensure_ascii=False)

with no trailing newline.

Rules kept so that the output matches Qt's writer (check() enforces them):
  * never a float with a whole-number value (write 1, not 1.0);
  * no integer above 2**53 and no integer with five or more trailing zeros
    (Qt may switch those to exponent form);
  * inside strings no control characters other than line feed and tab;
  * no keys with characters outside the Basic Multilingual Plane, so that
    code-point order and UTF-16 order agree.
"""

import json
import math

# ---------------------------------------------------------------- values

def dyn_text(text):
    """Dynamic text, plain (Type 0); the text may be an extension object."""
    return {"Type": 0, "Text": text}


def dyn_num(number):
    """Dynamic number, plain (Type 0); the number may be an extension object."""
    return {"Type": 0, "Number": number}


def actor_data(index, info):
    """Dynamic number/text: data of a party member (ActorType false)."""
    return {"Type": 4, "ActorType": False, "Index": index, "Info": info}


def ext_param(name):
    """Extension object: the value of a custom parameter."""
    return {"Type": 0, "Param": name}


def ext_variable(var_id):
    """Extension object: the value of a game variable."""
    return {"Type": 1, "ID": var_id}


def ext_code(code):
    """Extension object: the result of a piece of JavaScript."""
    return {"Type": 2, "Code": code}


def run_basic(run_type=1):
    """Run type of a property animation: a basic one ("On Create" = 1)."""
    return {"Type": 0, "RunType": run_type}


# Start and end keys of each animated property, by "Property".
ANIMATION_KEYS = {
    0: ("StartX", "EndX"),
    1: ("StartY", "EndY"),
    2: ("StartScaleWidth", "EndScaleWidth"),
    3: ("StartScaleHeight", "EndScaleHeight"),
    4: ("StartWidth", "EndWidth"),
    5: ("StartHeight", "EndHeight"),
    6: ("StartRotation", "EndRotation"),
    7: ("StartOpacity", "EndOpacity"),
    8: ("StartOpenness", "EndOpenness"),
    9: ("StartOffset", "EndOffset"),
    10: ("StartOffset", "EndOffset"),
    11: ("StartBrightness", "EndBrightness"),
    12: ("StartHue", "EndHue"),
}


def animation(prop, start_key, end_key, start, end, loop=0, duration=60,
              easing=0, activate=None, reset=False, return_easing=0,
              backwards=None):
    """One entry of a component's "Animations" array."""
    obj = {
        "Property": prop,
        "Type": loop,
        "Duration": duration,
        "EasingCurve": easing,
        "ActivateType": activate if activate is not None else run_basic(),
        "Reset": reset,
        "ReturnEasing": return_easing,
        start_key: start,
        end_key: end,
    }
    if return_easing == 2:
        obj["BackwardsEasingCurve"] = backwards if backwards is not None else 0
    return obj


def addons_block(addons):
    """Keys merged into a data object by the add-on box."""
    notes = [a["Note"] for a in addons if a.get("Type") == 0]
    return {"Addons": addons, "Note": "\n\n".join(notes)}


# ---------------------------------------------------------------- components

# Data key of each component "Type".
DATA_KEYS = {
    0: "TextData", 1: "ShapeData", 2: "PictureData", 3: "RepeatData",
    4: "GaugeData", 5: "PictureGaugeData", 6: "GroupData", 7: "WindowData",
    8: "ActorFaceData", 9: "IconData", 10: "CustomData",
    11: "CustomCollectionData", 12: "AttachCollectionData",
    13: "AnimationData",
}

# Kinds whose size is a scale of their picture: they always carry ScaleX/Y.
SCALE_KINDS = (0, 2, 8, 9, 13)
# Kinds that hold child components.
CONTAINER_KINDS = (6, 7)


def component(kind, cid, name, x, y, data_key=None, data=None, rotation=0,
              opacity=1, scale=None, conditions=None, animations=None,
              custom_properties=None, addons=None, children=None,
              expanded=None, extra=None):
    """A component object as the property dialog writes it."""
    obj = {
        "Type": kind,
        "ID": cid,
        "Name": name,
        "X": x,
        "Y": y,
        "Rotation": rotation,
        "Opacity": opacity,
        "Animations": animations if animations is not None else [],
        "CustomProperties": custom_properties if custom_properties is not None else {},
    }
    if scale is not None:
        obj["ScaleX"], obj["ScaleY"] = scale
    if conditions:
        obj["Conditions"] = conditions
    if data_key is not None:
        body = dict(data or {})
        body.update(addons_block(addons or []))
        obj[data_key] = body
    if children is not None:
        obj["Children"] = children
        obj["Expanded"] = True if expanded is None else expanded
    if extra:
        obj.update(extra)
    return obj


def text_data(text, font_size=30, outline=4, alignment=1, max_width=200,
              color="#ffffff", outline_color="#000000", outline_opacity=100,
              font=""):
    return {
        "Text": text,
        "FontFamily": font,
        "FontSize": font_size,
        "OutlineSize": outline,
        "Alignment": alignment,
        "MaxWidth": max_width,
        "Color": color,
        "OutlineColor": outline_color,
        "OutlineOpacity": outline_opacity,
    }


def gauge_data(value, maximum, width=250, height=30, color1="#a87532",
               color2="#a83232", outline=1, smooth=20, sync="",
               background="#333333", outline_color="#000000",
               outline_opacity=100):
    return {
        "Width": width,
        "Height": height,
        "OutlineSize": outline,
        "Smoothness": smooth,
        "SyncComponent": sync,
        "Color1": color1,
        "Color2": color2,
        "BackgroundColor": background,
        "OutlineColor": outline_color,
        "OutlineOpacity": outline_opacity,
        "Value": value,
        "Maximum": maximum,
    }


def window_data(width, height, skin="Window", padding=12, margin=4,
                background_opacity=75):
    return {
        "WindowSkin": skin,
        "Width": width,
        "Height": height,
        "Padding": padding,
        "Margin": margin,
        "BackgroundOpacity": background_opacity,
    }


def count_components(components):
    """Components of a "HUD" or "Children" array, all levels."""
    return sum(1 + count_components(c.get("Children", [])) for c in components)


# ---------------------------------------------------------------- checks

def check(value, path="$"):
    """Asserts that Qt's writer would give the same bytes as json.dumps."""
    if isinstance(value, bool) or value is None:
        return
    if isinstance(value, float):
        assert math.isfinite(value), path
        assert value != int(value), "whole-number float at " + path
        return
    if isinstance(value, int):
        assert abs(value) <= 2 ** 53, path
        assert value == 0 or value % 100000 != 0, "many trailing zeros at " + path
        return
    if isinstance(value, str):
        for ch in value:
            assert ord(ch) >= 0x20 or ch in "\n\t", "control char at " + path
            assert ord(ch) != 0x7f, path
        return
    if isinstance(value, list):
        for i, item in enumerate(value):
            check(item, "%s[%d]" % (path, i))
        return
    assert isinstance(value, dict), path
    for key, item in value.items():
        assert all(ord(ch) <= 0xFFFF for ch in key), "astral key at " + path
        check(key, path + "." + key)
        check(item, path + "." + key)


def check_ids(components, seen, path):
    """Asserts that component IDs are unique within one HUD, all levels."""
    for comp in components:
        cid = comp["ID"]
        assert cid not in seen, "duplicate component ID %r in %s" % (cid, path)
        seen.add(cid)
        check_ids(comp.get("Children", []), seen, path)


def check_document(doc):
    check(doc)
    for i, hud in enumerate(doc["Data"]):
        check_ids(hud["HUD"], set(), "Data[%d]" % i)


def dumps(doc):
    """The document's text, byte for byte as Velmora writes it."""
    return json.dumps(doc, sort_keys=True, separators=(",", ":"),
                      ensure_ascii=False)


def write_document(path, doc):
    """Checks the document and writes it; returns the text written."""
    check_document(doc)
    text = dumps(doc)
    with open(path, "w", encoding="utf-8", newline="") as handle:
        handle.write(text)
    return text
