"""The music and the sound effects of the Original skin, made from texts."""
