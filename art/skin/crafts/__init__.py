"""The crafts: how each skin paints. Everything else is shared, apart from the skins' texts."""

from .bold import Bold
from .enamel import Enamel
from .lantern import Lantern
from .porcelain import Porcelain

CRAFTS = {"Original": Enamel(), "Daylight": Porcelain(), "Lantern": Lantern(), "Contrast": Bold()}
