"""How each skin is made. Skins differ here and in their texts; all else they share."""


from .enamel import Enamel


CRAFTS = {"Original": Enamel()}
