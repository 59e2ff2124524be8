"""How each skin is made. Skins differ here and in their texts; all else they share."""

from .bold import Bold
from .enamel import Enamel
from .porcelain import Porcelain

CRAFTS = {"Original": Enamel(), "Daylight": Porcelain(), "Contrast": Bold()}
