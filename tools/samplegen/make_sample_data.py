# Writes the RPG Maker MZ database files of examples/SampleProject.
# Run from the repository root: python3 tools/samplegen/make_sample_data.py
import json, os, math

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "examples", "SampleProject")
DATA = os.path.join(ROOT, "data")
os.makedirs(DATA, exist_ok=True)

def icon(glyph, colour):
    g = ["heart","star","sword","axe","bow","staff","shield","helmet","boot","ring","potion",
         "droplet","coin","gem","key","book","scroll","bag","flame","lightning","snowflake",
         "leaf","sun","moon","up","down","skull","crown"].index(glyph)
    c = ["red","orange","yellow","green","cyan","blue","purple","silver"].index(colour)
    return 16 + g * 8 + c

def dumps(o):
    return json.dumps(o, ensure_ascii=False, separators=(",", ":"))

def write_array(name, entries):
    with open(os.path.join(DATA, name), "w", encoding="utf-8", newline="\n") as f:
        f.write("[\n" + ",\n".join(["null"] + [dumps(e) for e in entries]) + "\n]")

def write_object(name, obj):
    with open(os.path.join(DATA, name), "w", encoding="utf-8", newline="\n") as f:
        f.write(dumps(obj))

def audio(name="", volume=90):
    return {"name": name, "pan": 0, "pitch": 100, "volume": volume}

def damage(type_=0, formula="0", element=0, critical=False, variance=20):
    return {"critical": critical, "elementId": element, "formula": formula, "type": type_, "variance": variance}

def trait(code, data_id, value):
    return {"code": code, "dataId": data_id, "value": value}

def effect(code, data_id=0, v1=0, v2=0):
    return {"code": code, "dataId": data_id, "value1": v1, "value2": v2}

# ---------------------------------------------------------------- System
system = {
    "advanced": {
        "gameId": 48213977, "screenWidth": 816, "screenHeight": 624, "uiAreaWidth": 816,
        "uiAreaHeight": 624, "numberFontFilename": "", "fallbackFonts": "Verdana, sans-serif",
        "fontSize": 26, "mainFontFilename": "DejaVuSans.ttf", "windowOpacity": 192,
        "screenScale": 1, "picturesUpperLimit": 100,
    },
    "airship": {"bgm": audio(), "characterIndex": 3, "characterName": "", "startMapId": 0, "startX": 0, "startY": 0},
    "armorTypes": ["", "General Armor", "Magic Armor", "Light Armor", "Heavy Armor", "Small Shield", "Large Shield"],
    "attackMotions": [{"type": 0, "weaponImageId": 0}, {"type": 1, "weaponImageId": 1}, {"type": 1, "weaponImageId": 2},
                      {"type": 1, "weaponImageId": 3}, {"type": 1, "weaponImageId": 4}, {"type": 1, "weaponImageId": 5},
                      {"type": 1, "weaponImageId": 6}, {"type": 2, "weaponImageId": 7}, {"type": 2, "weaponImageId": 8},
                      {"type": 2, "weaponImageId": 9}, {"type": 0, "weaponImageId": 10}, {"type": 0, "weaponImageId": 11},
                      {"type": 0, "weaponImageId": 12}],
    "battleBgm": audio(),
    "battleback1Name": "",
    "battleback2Name": "",
    "battlerHue": 0,
    "battlerName": "",
    "battleSystem": 0,
    "boat": {"bgm": audio(), "characterIndex": 0, "characterName": "", "startMapId": 0, "startX": 0, "startY": 0},
    "currencyUnit": "G",
    "defeatMe": audio(),
    "editMapId": 1,
    "elements": ["", "Physical", "Fire", "Ice", "Thunder", "Water", "Earth", "Wind", "Light", "Darkness"],
    "equipTypes": ["", "Weapon", "Shield", "Head", "Body", "Accessory"],
    "gameTitle": "Velmora Sample",
    "gameoverMe": audio(),
    "itemCategories": [True, True, True, True],
    "locale": "en_US",
    "magicSkills": [1],
    "menuCommands": [True, True, True, True, True, True],
    "optAutosave": True,
    "optDisplayTp": True,
    "optDrawTitle": True,
    "optExtraExp": False,
    "optFloorDeath": False,
    "optFollowers": True,
    "optKeyItemsNumber": False,
    "optSideView": True,
    "optSlipDeath": False,
    "optTransparent": False,
    "optMessageSkip": True,
    "partyMembers": [1, 2, 3, 4],
    "ship": {"bgm": audio(), "characterIndex": 1, "characterName": "", "startMapId": 0, "startX": 0, "startY": 0},
    "skillTypes": ["", "Magic", "Special"],
    "sounds": [audio() for _ in range(24)],
    "startMapId": 1,
    "startX": 8,
    "startY": 6,
    "switches": ["", "Show HUD", "Boss Fight", "Night", "Quest Active", "Door Unlocked", "Met Guide",
                 "Stealth Mode", "Tutorial Done", "Shop Open", "Rain", "", "", "", "", "", "", "", "", "", ""],
    "terms": {
        "basic": ["Level", "Lv", "HP", "HP", "MP", "MP", "TP", "TP", "EXP", "EXP"],
        "commands": ["Fight", "Escape", "Attack", "Guard", "Item", "Skill", "Equip", "Status", "Formation",
                     "Save", "Game End", "Options", "Weapon", "Armor", "Key Item", "Equip", "Optimize",
                     "Clear", "New Game", "Continue", None, "To Title", "Cancel", None, "Buy", "Sell"],
        "params": ["Max HP", "Max MP", "Attack", "Defense", "M.Attack", "M.Defense", "Agility", "Luck",
                   "Hit", "Evasion"],
        "messages": {
            "alwaysDash": "Always Dash",
            "commandRemember": "Command Remember",
            "touchUI": "Touch UI",
            "bgmVolume": "BGM Volume",
            "bgsVolume": "BGS Volume",
            "meVolume": "ME Volume",
            "seVolume": "SE Volume",
            "possession": "Possession",
            "expTotal": "Current %1",
            "expNext": "To Next %1",
            "saveMessage": "Which file would you like to save to?",
            "loadMessage": "Which file would you like to load?",
            "file": "File",
            "autosave": "Autosave",
            "partyName": "%1's Party",
            "emerge": "%1 emerged!",
            "preemptive": "%1 got the upper hand!",
            "surprise": "%1 was surprised!",
            "escapeStart": "%1 has started to escape!",
            "escapeFailure": "However, it was unable to escape!",
            "victory": "%1 was victorious!",
            "defeat": "%1 was defeated.",
            "obtainExp": "%1 %2 received!",
            "obtainGold": "%1\\G found!",
            "obtainItem": "%1 found!",
            "levelUp": "%1 is now %2 %3!",
            "obtainSkill": "%1 learned!",
            "useItem": "%1 uses %2!",
            "criticalToEnemy": "An excellent hit!!",
            "criticalToActor": "A painful blow!!",
            "actorDamage": "%1 took %2 damage!",
            "actorRecovery": "%1 recovered %2 %3!",
            "actorGain": "%1 gained %2 %3!",
            "actorLoss": "%1 lost %2 %3!",
            "actorDrain": "%1 was drained of %2 %3!",
            "actorNoDamage": "%1 took no damage!",
            "actorNoHit": "Miss! %1 took no damage!",
            "enemyDamage": "%1 took %2 damage!",
            "enemyRecovery": "%1 recovered %2 %3!",
            "enemyGain": "%1 gained %2 %3!",
            "enemyLoss": "%1 lost %2 %3!",
            "enemyDrain": "Drained %2 %3 from %1!",
            "enemyNoDamage": "%1 took no damage!",
            "enemyNoHit": "Miss! %1 took no damage!",
            "evasion": "%1 evaded the attack!",
            "magicEvasion": "%1 nullified the magic!",
            "magicReflection": "%1 reflected the magic!",
            "counterAttack": "%1 counterattacked!",
            "substitute": "%1 protected %2!",
            "buffAdd": "%1's %2 went up!",
            "debuffAdd": "%1's %2 went down!",
            "buffRemove": "%1's %2 returned to normal!",
            "actionFailure": "There was no effect on %1!",
        },
    },
    "testBattlers": [{"actorId": 1, "equips": [1, 1, 2, 3, 0], "level": 1},
                     {"actorId": 2, "equips": [2, 0, 0, 3, 0], "level": 1},
                     {"actorId": 3, "equips": [3, 0, 0, 4, 0], "level": 1},
                     {"actorId": 4, "equips": [4, 0, 0, 4, 0], "level": 1}],
    "testTroopId": 1,
    "title1Name": "",
    "title2Name": "",
    "titleBgm": audio(),
    "titleCommandWindow": {"background": 0, "offsetX": 0, "offsetY": 0},
    "variables": ["", "Gold Goal", "Quest Step", "Kills", "Boss HP", "Boss Max HP", "Timer Seconds",
                  "Combo", "Score", "Keys Found", "Day", "", "", "", "", "", "", "", "", "", ""],
    "versionId": 70542318,
    "victoryMe": audio(),
    "weaponTypes": ["", "Dagger", "Sword", "Flail", "Axe", "Whip", "Staff", "Bow", "Crossbow", "Gun",
                    "Claw", "Glove", "Spear"],
    "windowTone": [0, 0, 0, 0],
    "tileSize": 48,
    "faceSize": 144,
    "iconSize": 32,
    "hasEncryptedImages": False,
    "hasEncryptedAudio": False,
    "encryptionKey": "",
}
write_object("System.json", system)

# ---------------------------------------------------------------- Actors
actors = [
    ("Reid", "Wandering Blade", 1, "Actor1", 0, [1, 1, 2, 3, 0], "A swordsman from the northern valleys\nwho never turns down a request."),
    ("Lyra", "Dawn Singer", 2, "Actor2", 5, [2, 0, 0, 3, 0], "A healer whose songs mend wounds\nand calm restless spirits."),
    ("Bram", "Red Gale", 3, "Actor1", 2, [3, 0, 0, 4, 0], "A hot-headed brawler with a grin\nfor every fight."),
    ("Mira", "Starreader", 4, "Actor1", 3, [4, 0, 0, 4, 0], "A scholar of the old stars who\nturns theory into fire."),
]
entries = []
for i, (name, nick, cls, face, idx, equips, profile) in enumerate(actors, 1):
    entries.append({"id": i, "battlerName": "", "characterIndex": i - 1, "characterName": "", "classId": cls,
                    "equips": equips, "faceIndex": idx, "faceName": face, "traits": [], "initialLevel": 1,
                    "maxLevel": 99, "name": name, "nickname": nick, "note": "", "profile": profile})
write_array("Actors.json", entries)

# ---------------------------------------------------------------- Classes
def curve(base, top, power=1.0):
    # Level 0 is unused by the game but present in the data.
    out = []
    for lv in range(100):
        t = max(0, lv - 1) / 98.0
        out.append(int(round(base + (top - base) * (t ** power))))
    return out

class_defs = [
    ("Swordsman", [30, 20, 30, 30], (450, 5800), (90, 1100), (16, 420), (16, 390), (12, 300), (12, 310), (16, 330), (16, 300), 2, [1, 2]),
    ("Cleric", [25, 20, 30, 30], (380, 4800), (150, 1900), (12, 320), (12, 330), (18, 420), (18, 430), (14, 300), (16, 340), 6, [3, 4]),
    ("Brawler", [30, 25, 30, 30], (520, 6400), (60, 800), (18, 460), (14, 360), (10, 260), (10, 280), (18, 360), (14, 280), 11, [5, 2]),
    ("Sorcerer", [25, 20, 30, 30], (340, 4300), (180, 2300), (10, 290), (10, 290), (20, 470), (18, 420), (14, 300), (16, 340), 6, [6, 7]),
]
entries = []
for i, (name, exp, *rest) in enumerate(class_defs, 1):
    params = [curve(a, b, 1.15) for (a, b) in rest[:8]]
    wtype, skills = rest[8], rest[9]
    traits = [trait(23, 0, 1), trait(22, 0, 0.95), trait(22, 1, 0.05), trait(22, 2, 0.04),
              trait(41, 1, 1), trait(51, wtype, 0), trait(52, 1, 0), trait(52, 3, 0), trait(52, 4, 0)]
    if i != 4:
        traits.insert(5, trait(41, 2, 1))
    learnings = [{"level": lv, "note": "", "skillId": s} for lv, s in zip((1, 4), skills)]
    entries.append({"id": i, "expParams": exp, "traits": traits, "learnings": learnings, "name": name,
                    "note": "", "params": params})
write_array("Classes.json", entries)

# ---------------------------------------------------------------- Skills
def skill(i, name, icon_index, desc, stype, mp, tp, scope, dmg, effects, anim=-1, hit=1, msg="%1 uses %2!", occasion=1, note=""):
    return {"id": i, "animationId": anim, "damage": dmg, "description": desc, "effects": effects,
            "hitType": hit, "iconIndex": icon_index, "message1": msg, "message2": "", "mpCost": mp,
            "name": name, "note": note, "occasion": occasion, "repeats": 1, "requiredWtypeId1": 0,
            "requiredWtypeId2": 0, "scope": scope, "speed": 0, "stypeId": stype, "successRate": 100,
            "tpCost": tp, "tpGain": 0 if stype else 10, "messageType": 1}

skills = [
    skill(1, "Attack", icon("sword", "silver"), "", 0, 0, 0, 1, damage(1, "a.atk * 4 - b.def * 2", -1, True),
          [effect(21, 0, 1, 0)], anim=-1, msg="%1 attacks!", note="Used by the Attack command."),
    skill(2, "Guard", icon("shield", "blue"), "", 0, 0, 0, 11, damage(), [effect(21, 2, 1, 0)],
          anim=0, hit=0, msg="%1 guards.", note="Used by the Guard command."),
    skill(3, "Heal", icon("heart", "green"), "Restores a little HP to one ally.", 1, 5, 0, 7,
          damage(3, "200 + a.mat", 0, False), [], anim=2, hit=0, occasion=0),
    skill(4, "Cleanse", icon("droplet", "cyan"), "Removes poison from one ally.", 1, 4, 0, 7,
          damage(), [effect(22, 4, 1, 0)], anim=2, hit=0, occasion=0),
    skill(5, "Double Strike", icon("axe", "orange"), "Two quick blows at one enemy.", 2, 0, 20, 1,
          damage(1, "a.atk * 3 - b.def * 2", -1, True), [], anim=1),
    skill(6, "Fireball", icon("flame", "red"), "Hurls a ball of fire at one enemy.", 1, 6, 0, 1,
          damage(1, "100 + a.mat * 2 - b.mdf * 2", 2), [], anim=3, hit=2),
    skill(7, "Frost Rain", icon("snowflake", "cyan"), "Chilling shards fall on all enemies.", 1, 12, 0, 2,
          damage(1, "80 + a.mat * 2 - b.mdf * 2", 3), [], anim=3, hit=2),
    skill(8, "Thunderclap", icon("lightning", "yellow"), "A bolt strikes one enemy.", 1, 9, 0, 1,
          damage(1, "120 + a.mat * 2 - b.mdf * 2", 4), [effect(21, 5, 0.2, 0)], anim=3, hit=2),
]
write_array("Skills.json", skills)

# ---------------------------------------------------------------- Items
def item(i, name, icon_index, desc, price, scope, dmg, effects, itype=1, consumable=True, occasion=0, anim=2):
    return {"id": i, "animationId": anim, "consumable": consumable, "damage": dmg, "description": desc,
            "effects": effects, "hitType": 0, "iconIndex": icon_index, "itypeId": itype, "name": name,
            "note": "", "occasion": occasion, "price": price, "repeats": 1, "scope": scope, "speed": 0,
            "successRate": 100, "tpGain": 0}

items = [
    item(1, "Potion", icon("potion", "red"), "Restores 500 HP.", 50, 7, damage(), [effect(11, 0, 0, 500)]),
    item(2, "Ether", icon("potion", "blue"), "Restores 100 MP.", 150, 7, damage(), [effect(12, 0, 0, 100)]),
    item(3, "Antidote", icon("potion", "green"), "Cures poison.", 30, 7, damage(), [effect(22, 4, 1, 0)]),
    item(4, "Phoenix Feather", icon("leaf", "orange"), "Revives a fallen ally.", 500, 9, damage(),
         [effect(22, 1, 1, 0), effect(11, 0, 0.1, 0)]),
    item(5, "Bomb", icon("flame", "purple"), "Deals fire damage to all enemies.", 200, 2,
         damage(1, "300", 2), [], occasion=1, anim=3),
    item(6, "Old Key", icon("key", "yellow"), "Opens a door somewhere in the old manor.", 0, 0, damage(), [],
         itype=2, consumable=False, occasion=3, anim=0),
]
write_array("Items.json", items)

# ---------------------------------------------------------------- Weapons
def weapon(i, name, icon_index, desc, wtype, price, params, anim=1):
    return {"id": i, "animationId": anim, "description": desc, "etypeId": 1,
            "traits": [trait(31, 1, 0), trait(22, 0, 0)], "iconIndex": icon_index, "name": name,
            "note": "", "params": params, "price": price, "wtypeId": wtype}

weapons = [
    weapon(1, "Iron Sword", icon("sword", "silver"), "A plain but sturdy blade.", 2, 500, [0, 0, 10, 0, 0, 0, 0, 0]),
    weapon(2, "Oak Staff", icon("staff", "green"), "A staff carved from a sacred oak.", 6, 400, [0, 0, 4, 0, 8, 4, 0, 0]),
    weapon(3, "Iron Knuckles", icon("ring", "silver"), "Studded gloves for close fighting.", 11, 450, [0, 0, 12, 0, 0, 0, 2, 0]),
    weapon(4, "Star Rod", icon("staff", "purple"), "A rod that hums with starlight.", 6, 600, [0, 10, 3, 0, 12, 4, 0, 0]),
]
write_array("Weapons.json", weapons)

# ---------------------------------------------------------------- Armors
def armor(i, name, icon_index, desc, atype, etype, price, params):
    return {"id": i, "atypeId": atype, "description": desc, "etypeId": etype,
            "traits": [trait(22, 1, 0)], "iconIndex": icon_index, "name": name, "note": "",
            "params": params, "price": price}

armors = [
    armor(1, "Buckler", icon("shield", "silver"), "A small round shield.", 5, 2, 300, [0, 0, 0, 10, 0, 0, 0, 0]),
    armor(2, "Leather Cap", icon("helmet", "orange"), "A cap of hardened leather.", 1, 3, 200, [0, 0, 0, 5, 0, 0, 0, 0]),
    armor(3, "Traveler's Garb", icon("boot", "orange"), "Light clothing and boots for long roads.", 1, 4, 250, [0, 0, 0, 8, 0, 2, 0, 0]),
    armor(4, "Silk Robe", icon("scroll", "purple"), "A robe woven with warding threads.", 2, 4, 400, [0, 10, 0, 4, 0, 8, 0, 0]),
]
write_array("Armors.json", armors)

# ---------------------------------------------------------------- States
def state(i, name, icon_index, restriction, priority, motion, overlay, traits, msgs, auto=0, min_t=1, max_t=1,
          remove_end=False, by_damage=False, note=""):
    return {"id": i, "autoRemovalTiming": auto, "chanceByDamage": 100, "description": "", "iconIndex": icon_index,
            "maxTurns": max_t, "message1": msgs[0], "message2": msgs[1], "message3": msgs[2], "message4": msgs[3],
            "minTurns": min_t, "motion": motion, "name": name, "note": note, "overlay": overlay,
            "priority": priority, "releaseByDamage": False, "removeAtBattleEnd": remove_end,
            "removeByDamage": by_damage, "removeByRestriction": False, "removeByWalking": False,
            "restriction": restriction, "stepsToRemove": 100, "traits": traits, "messageType": 1}

states = [
    state(1, "Knockout", icon("skull", "silver"), 4, 100, 3, 0, [trait(23, 9, 0)],
          [" has fallen!", " is slain!", "", " revives!"], note="Added when HP reaches 0."),
    state(2, "Guard", icon("shield", "blue"), 0, 0, 0, 0, [trait(62, 1, 0)], ["", "", "", ""],
          auto=2, remove_end=True),
    state(3, "Immortal", icon("star", "yellow"), 0, 0, 0, 0, [trait(14, 1, 0)], ["", "", "", ""], remove_end=True),
    state(4, "Poison", icon("droplet", "purple"), 0, 50, 1, 1, [trait(22, 7, -0.1)],
          [" is poisoned!", " is poisoned!", "", " is no longer poisoned!"]),
    state(5, "Sleep", icon("moon", "blue"), 4, 80, 2, 7, [trait(22, 1, -1)],
          [" falls asleep!", " falls asleep!", " is sleeping.", " wakes up!"], auto=1, min_t=3, max_t=5,
          remove_end=True, by_damage=True),
    state(6, "Haste", icon("up", "green"), 0, 40, 0, 0, [trait(21, 6, 1.5)],
          [" speeds up!", " speeds up!", "", " slows back down."], auto=2, min_t=3, max_t=3, remove_end=True),
]
write_array("States.json", states)

# ---------------------------------------------------------------- Enemies
def enemy(i, name, params, exp, gold, drops, actions, traits=None):
    drop_items = [{"dataId": d, "denominator": den, "kind": k} for (k, d, den) in drops]
    while len(drop_items) < 3:
        drop_items.append({"dataId": 1, "denominator": 1, "kind": 0})
    return {"id": i, "actions": [{"conditionParam1": 0, "conditionParam2": 0, "conditionType": 0,
                                  "rating": r, "skillId": s} for (s, r) in actions],
            "battlerHue": 0, "battlerName": "", "dropItems": drop_items, "exp": exp,
            "traits": traits or [trait(22, 0, 0.95), trait(22, 1, 0.05), trait(31, 1, 0)],
            "gold": gold, "name": name, "note": "", "params": params}

enemies = [
    enemy(1, "Slime", [250, 0, 20, 20, 10, 10, 12, 10], 12, 8, [(1, 1, 2)], [(1, 5)]),
    enemy(2, "Cave Bat", [200, 0, 26, 16, 10, 10, 30, 10], 15, 10, [(1, 3, 3)], [(1, 5)]),
    enemy(3, "Ember Imp", [420, 60, 34, 26, 40, 30, 22, 20], 40, 30, [(1, 2, 4)], [(1, 4), (6, 6)]),
    enemy(4, "Stone Warden", [2400, 120, 60, 70, 40, 60, 18, 30], 400, 500, [(2, 1, 1), (1, 4, 1)],
          [(1, 5), (5, 4), (8, 3)]),
]
write_array("Enemies.json", enemies)

# ---------------------------------------------------------------- Animations
def animation(i, name, effect_name, flashes, sounds, scale=100, speed=100, display=0):
    return {"id": i, "displayType": display, "effectName": effect_name,
            "flashTimings": [{"frame": f, "duration": d, "color": c} for (f, d, c) in flashes],
            "name": name, "offsetX": 0, "offsetY": 0, "rotation": {"x": 0, "y": 0, "z": 0}, "scale": scale,
            "soundTimings": [{"frame": f, "se": audio(n, 90)} for (f, n) in sounds], "speed": speed,
            "alignBottom": False, "quakeTimings": []}

animations = [
    animation(1, "Hit Physical", "", [(0, 5, [255, 255, 255, 170])], []),
    animation(2, "Heal One", "", [(0, 10, [120, 255, 160, 120])], []),
    animation(3, "Fire One", "", [(0, 8, [255, 140, 60, 170]), (10, 8, [255, 200, 120, 90])], [], scale=120),
]
write_array("Animations.json", animations)

# ---------------------------------------------------------------- Common events
def cmd(code, indent, params):
    return {"code": code, "indent": indent, "parameters": params}

common = [
    {"id": 1, "list": [cmd(121, 0, [1, 1, 0]), cmd(0, 0, [])], "name": "Show HUD", "switchId": 1, "trigger": 0},
    {"id": 2, "list": [cmd(121, 0, [1, 1, 1]), cmd(0, 0, [])], "name": "Hide HUD", "switchId": 1, "trigger": 0},
    {"id": 3, "list": [cmd(122, 0, [3, 3, 1, 0, 1]), cmd(0, 0, [])], "name": "Count Kill", "switchId": 4, "trigger": 0},
]
write_array("CommonEvents.json", common)

# ---------------------------------------------------------------- Troops
troops = [{"id": 1, "members": [{"enemyId": 1, "x": 336, "y": 436, "hidden": False},
                                {"enemyId": 1, "x": 480, "y": 436, "hidden": False}],
           "name": "Slime*2",
           "pages": [{"conditions": {"actorHp": 50, "actorId": 1, "actorValid": False, "enemyHp": 50,
                                     "enemyIndex": 0, "enemyValid": False, "switchId": 1, "switchValid": False,
                                     "turnA": 0, "turnB": 0, "turnEnding": False, "turnValid": False},
                      "list": [cmd(0, 0, [])], "span": 0}]}]
write_array("Troops.json", troops)

# ---------------------------------------------------------------- Map
write_array("MapInfos.json", [{"id": 1, "expanded": False, "name": "MAP001", "order": 1, "parentId": 0,
                               "scrollX": 0, "scrollY": 0}])

W, H = 17, 13
layers = [0] * (W * H * 6)
for k in range(W * H):
    layers[k] = 2816 + 47  # plain floor in the first A2 autotile
map_head = {
    "autoplayBgm": False, "autoplayBgs": False, "battleback1Name": "", "battleback2Name": "",
    "bgm": audio(), "bgs": audio(), "disableDashing": False, "displayName": "", "encounterList": [],
    "encounterStep": 30, "height": H, "note": "", "parallaxLoopX": False, "parallaxLoopY": False,
    "parallaxName": "", "parallaxShow": True, "parallaxSx": 0, "parallaxSy": 0, "scrollType": 0,
    "specifyBattleback": False, "tilesetId": 1, "width": W,
}
with open(os.path.join(DATA, "Map001.json"), "w", encoding="utf-8", newline="\n") as f:
    f.write("{\n" + dumps(map_head)[1:-1] + ",\n\"data\":" + dumps(layers) + ",\n\"events\":[\nnull\n]\n}")

# ---------------------------------------------------------------- Tilesets
tileset = {"id": 1, "flags": [16] + [0] * 8191, "mode": 1, "name": "Field",
           "note": "", "tilesetNames": ["", "", "", "", "", "", "", "", ""]}
write_array("Tilesets.json", [tileset])

with open(os.path.join(ROOT, "game.rmmzproject"), "w", encoding="utf-8", newline="\n") as f:
    f.write("RPGMZ 1.9.0")
