#!/usr/bin/env python3
"""The work of bench/peer.sh: makes the Tiled maps, runs both programs, prints the times."""
import json
import os
import random
import subprocess
import sys
import tempfile

from projects import median_ms


def component_count(components):
    count = 0
    for component in components:
        if isinstance(component, dict):
            count += 1 + component_count(component.get("Children", []))
    return count


def document_components(project):
    with open(os.path.join(project, "data", "plugin", "VelmoraHUD.json"), encoding="utf-8") as file:
        document = json.load(file)
    return sum(component_count(entry.get("HUD", [])) for entry in document.get("Data", []))


def tiled_map(objects, seed=1):
    """An orthogonal map with one object layer of rectangles and texts."""
    rng = random.Random(seed)
    items = []
    for i in range(objects):
        item = {
            "id": i + 1, "name": "Component %d" % i, "type": "hud", "visible": True, "rotation": 0,
            "x": rng.randint(0, 800), "y": rng.randint(0, 600),
            "width": rng.randint(8, 300), "height": rng.randint(8, 120),
            "properties": [
                {"name": "Opacity", "type": "float", "value": round(rng.random(), 3)},
                {"name": "Binding", "type": "string", "value": "actor[%d].hp" % rng.randint(1, 8)},
                {"name": "Visible when", "type": "string", "value": "switch %d on" % rng.randint(1, 100)},
                {"name": "Layer", "type": "int", "value": rng.randint(0, 9)},
            ],
        }
        if i % 2:
            item["text"] = {"text": "Label %d: the quick brown fox" % i, "wrap": True, "pixelsize": 22}
        items.append(item)
    return {
        "compressionlevel": -1, "height": 20, "width": 26, "infinite": False, "orientation": "orthogonal",
        "renderorder": "right-down", "tiledversion": "1.8.2", "version": "1.8", "type": "map",
        "tileheight": 32, "tilewidth": 32, "tilesets": [], "nextlayerid": 2, "nextobjectid": objects + 1,
        "layers": [{"draworder": "topdown", "id": 1, "name": "HUD", "objects": items, "opacity": 1,
                    "type": "objectgroup", "visible": True, "x": 0, "y": 0}],
    }


def main():
    cli, runs, projects = sys.argv[1], int(sys.argv[2]), sys.argv[3:]
    env = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    print("project\tobjects\ttiled ms\tvelmora ms\tvelmora/tiled")
    with tempfile.TemporaryDirectory() as scratch:
        for project in projects:
            objects = document_components(project)
            source = os.path.join(scratch, "map.tmj")
            with open(source, "w", encoding="utf-8") as file:
                json.dump(tiled_map(objects), file)
            tiled = median_ms(["tiled", "--export-map", "--minimize", "json", source,
                               os.path.join(scratch, "out.tmj")], runs, env)
            velmora = median_ms([cli, "resave", project, "--out", os.path.join(scratch, "VelmoraHUD.json")],
                                runs, env)
            print("%s\t%d\t%.0f\t%.0f\t%.2f" % (os.path.basename(project), objects, tiled, velmora, velmora / tiled))


if __name__ == "__main__":
    main()
