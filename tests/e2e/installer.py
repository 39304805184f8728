"""The library as an installer calls it: installer.py LIBRARY"""
import ctypes
import os
import sys
import tempfile

with tempfile.TemporaryDirectory() as home:
    os.environ["XDG_DATA_HOME"] = home + "/data"
    os.environ["XDG_CONFIG_HOME"] = home + "/config"
    presets = home + "/data/Brinlow Software/Orvane 3/Layer Presets"
    for folder in (home + "/prog/Default/Layer Presets", presets, home + "/config/Brinlow Software/Orvane 3"):
        os.makedirs(folder)
    for name in (home + "/prog/Default/Layer Presets/Factory.pst", presets + "/Factory.pst", presets + "/Mine.pst"):
        open(name, "w").close()
    with open(home + "/config/Brinlow Software/Orvane 3/3.2", "w") as settings:
        settings.write(f"ProgDir=string:{home}/prog/\n")

    library = ctypes.CDLL(sys.argv[1])
    library.commitPort()
    library.commitNoPort()
    assert sorted(os.listdir(presets)) == ["Factory.pst", "Mine.pst"], os.listdir(presets)
    library.uninstall()
    assert os.listdir(presets) == ["Mine.pst"], os.listdir(presets)
    os.remove(presets + "/Mine.pst")
    library.uninstall()
    assert os.listdir(home + "/data") == [], os.listdir(home + "/data")
