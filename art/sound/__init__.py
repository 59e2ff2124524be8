"""The music and the sound effects of the skins, made from texts."""
