# Boot menu of the Vexa Rescue CD.

# Password protection of the menu. The wizard switches it on.
Set PasswordRequest=0
Set PasswordString=""
