"""Which scene and which colours each poster has. A game that is missing here has no picture."""
from . import scenes_land as land
from . import scenes_systems as systems
from . import scenes_things as things
from . import scenes_water as waters

# The folders of the systems.
SYSTEMS = {
    "Comet Pocket": (systems.comet_pocket, "indigo"),
    "Hearth 16": (systems.hearth_16, "ember"),
    "Starlane Arcade": (systems.starlane_arcade, "neon"),
    "Tidewheel Disc": (systems.tidewheel_disc, "sea"),
    "Slate Computer": (systems.slate_computer, "steel"),
    "竹笛掌机": (systems.bamboo_flute, "jade"),
}
# The games, loose ones first, then by system.
GAMES = {
    "Amber Tideway": (waters.causeway, "sand"),
    "Nine Paper Kites": (land.many_kites, "dawn"),
    "Starlit Ferry": (waters.ferry, "night"),
    "小园丁": (land.balcony, "jade"),
    "星夜渡船": (waters.lantern_boat, "indigo"),

    "Bolhas de Sabão": (things.bubbles, "rose"),
    "Custard Kitchen": (things.kitchen, "tea"),
    "Driftglass": (things.sea_glass, "sea"),
    "Knotwork": (things.knot, "moss"),
    "Marmalade Clockworks": (things.marmalade_clock, "dawn"),
    "Moth and Candle": (things.candle, "plum"),
    "Pebble and Plume": (waters.feather_boat, "sea"),
    "Pocket Weather": (things.weather, "ice"),
    "かみひこうき便": (land.paper_plane, "sand"),
    "ほたるの郵便局": (land.fireflies, "moss"),

    "Bramblewick Post Office": (land.village, "rose"),
    "Canción del Niño Tortuga": (waters.sea_turtle, "sea"),
    "Captain 竹谷": (waters.junk, "jade"),
    "El Faro y la Golondrina": (waters.lighthouse, "dusk"),
    "Eleven Lanterns": (land.eleven_lanterns, "night"),
    "O Guardião do Rio": (waters.river, "moss"),
    "Orchard of Small Machines": (land.orchard, "tea"),
    "The Remarkably Long Voyage of the Lighthouse Keeper's Youngest Apprentice": (waters.voyage, "indigo"),
    "Under the Attic Moon": (land.attic, "plum"),
    "雪どけキャラバン": (land.caravan, "ice"),
    "북극의 우편열차": (land.night_train, "indigo"),
    "종이배 항해": (waters.paper_sailing, "steel"),

    "Copper Kettle Rally": (things.kettle, "dawn"),
    "Neon Anglers": (waters.anglers, "neon"),
    "Pipa Veloz": (land.one_kite, "sea"),
    "Quiet Meteor": (land.meteor, "indigo"),
    "Rocket Porters": (land.rocket, "plum"),
    "Seesaw Kings": (things.seesaw, "sand"),
    "Starling Relay": (land.relay_birds, "dusk"),
    "回転灯台レース": (land.lighthouse_race, "neon"),
    "擂台狮王": (things.lion, "ember"),

    "Ballad for Brass Beetles": (things.beetles, "moss"),
    "Cathedral of Rain": (land.cathedral, "indigo"),
    "Compás Lento": (things.snail, "rose"),
    "Fado das Ondas": (waters.wave_guitar, "sea"),
    "La Panadería de Medianoche": (land.night_bakery, "night"),
    "最后一班开往山顶灯塔的红色缆车与它沉默寡言的老驾驶员以及那只会数星星的黑猫": (land.cable_car, "dusk"),
    "西域商队": (land.camels, "sand"),
    "風鈴リズム": (things.wind_chime, "ice"),
    "달빛 우체부": (land.moon_post, "night"),

    "Hex Orchard": (things.hexes, "jade"),
    "Ledger of the Deep": (waters.whale, "sea"),
    "Letter Foundry": (things.type_letters, "steel"),
    "Sixteen Drawers": (things.drawers, "tea"),
    "Teja por Teja": (land.roof_tiles, "dawn"),
    "Xadrez de Papel": (things.paper_chess, "steel"),
    "電卓探偵": (things.calculator, "jade"),

    "七块木板": (things.tangram, "tea"),
    "中国茶馆": (things.teapot, "tea"),
    "中国象棋": (things.xiangqi, "sand"),
    "云端修理铺": (waters.cloud_ladder, "ice"),
    "双桨": (waters.oars, "sea"),
    "月下纸鸢": (land.moon_kites, "night"),
    "灯谜夜市": (land.lantern_market, "plum"),
    "皮影戏台": (things.puppets, "ember"),
    "竹谷信使": (land.messenger, "jade"),
    "锦鲤池": (waters.koi, "jade"),
    "雨巷侦探": (waters.umbrella_lane, "steel"),
    "龙舟竞渡": (waters.dragon_boat, "dawn"),
}
