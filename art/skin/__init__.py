"""Draws the pictures of the skins."""
